// The exported classes' assignments: compiler-made, defined here so that the module exports them.
#include "CADPlotUtilities.h"
#include "ZORBAppUtilities.h"

ZORBAppUtilities& ZORBAppUtilities::operator=(const ZORBAppUtilities&) = default;
ZORBAppUtilities& ZORBAppUtilities::operator=(ZORBAppUtilities&&) = default;

CADPlotUtilities& CADPlotUtilities::operator=(const CADPlotUtilities&) = default;
CADPlotUtilities& CADPlotUtilities::operator=(CADPlotUtilities&&) = default;
