// The platform's automation headers, in the one order in which they compile.
#pragma once

// clang-format off
#include <windows.h>
#include <unknwn.h>
#include <oleauto.h>
#include <ocidl.h>
#include <dispex.h>
// clang-format on
