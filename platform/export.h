// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the shared library libVeltViewers shows to its users; everything else stays hidden.
#if defined(__GNUC__)
#define VELT_API __attribute__((visibility("default")))
#else
#define VELT_API
#endif
