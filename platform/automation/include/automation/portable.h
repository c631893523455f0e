// The portable automation runtime: the platform's automation names with the platform's behaviour,
// for builds that do not have the platform. Each header holds one concern; include this one (or
// rather "automation.h").
#pragma once

#include "automation/export.h"
#include "automation/win_types.h"
#include "automation/hresult.h"
#include "automation/system.h"
#include "automation/guid.h"
#include "automation/bstr.h"
#include "automation/unknown.h"
#include "automation/variant.h"
#include "automation/safearray.h"
#include "automation/dispatch.h"
#include "automation/enum_variant.h"
#include "automation/type_info.h"
#include "automation/type_lib.h"
#include "automation/error_info.h"
#include "automation/com_util.h"
#include "automation/bstr_t.h"
#include "automation/variant_t.h"
#include "automation/com_error.h"
#include "automation/com_ptr.h"
#include "automation/test_hooks.h"
