// SPDX-License-Identifier: MIT
#pragma once

// What a program that uses the library sees of it. The functions stand in a namespace of their own, which
// names the version of the interface in every symbol; to its users it is `halvane` itself.

#if defined(HALVANE_BUILDING)
#define HALVANE_INLINE
#else
#define HALVANE_INLINE inline
#endif

#define HALVANE_EXPORT __attribute__((visibility("default")))
