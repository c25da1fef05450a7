// Everything the CAD host offers to a module: one include for callers. Declarations only; the host
// in the process supplies the functions.
#pragma once

#include "platform/acad_command.h"
#include "platform/acad_database.h"
#include "platform/acad_documents.h"
#include "platform/acad_entities.h"
#include "platform/acad_geometry.h"
#include "platform/acad_lisp.h"
#include "platform/acad_module.h"
#include "platform/acad_result.h"
#include "platform/acad_selection.h"
