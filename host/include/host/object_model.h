// The host's automation object model, as an imported type library
// presents them: one dual interface per host object, raw methods returning the status, and
// non-virtual wrappers that raise the automation failure on a failed status.
#pragma once

#include "host/application.h"
#include "host/documents.h"
#include "host/menus.h"
#include "host/preferences.h"
#include "host/toolbars.h"
