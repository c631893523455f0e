// The host SDK's plot area enumeration.
#pragma once

struct ZbDbPlotSettings {
    // Only the window area matters to MX code; every other value is the host's own and is
    // passed through unchanged.
    enum PlotType : int {
        kWindow = 4,
    };
};
