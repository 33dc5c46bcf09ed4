#pragma once

/// @file
/// Everything a tool needs from the library, in one include.

#include <kivo/argument_syntax.h>
#include <kivo/describe.h>
#include <kivo/event_handler.h>
#include <kivo/handles.h>
#include <kivo/option.h>
#include <kivo/option_lookup.h>
#include <kivo/parse_result.h>
#include <kivo/parser.h>
#include <kivo/status.h>
#include <kivo/text_layout.h>
#include <kivo/value.h>
#include <kivo/version.h>
