// What the host's application framework gives the module: the framework's command targets and
// application object (CCmdTarget, CWinApp) and the automation date-time (ATL::COleDateTime).
#pragma once

#include "framework/cmd_target.h"
#include "framework/ole_date_time.h"
