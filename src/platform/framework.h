// The window framework, portable part: texts, arrays, files, module records, and the runtime calls
// that must behave the same on every system. Declarations only.
#pragma once

#include "platform/framework_arrays.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_files.h"
#include "platform/framework_messages.h"
#include "platform/framework_module.h"
#include "platform/framework_runtime.h"
#include "platform/framework_shapes.h"
#include "platform/framework_text.h"
#include "platform/framework_wait_cursor.h"
