// The one place where compilers differ; everything else is plain C++, which a test watches over.
#pragma once

// Whether every processor that the build is for has 16-byte vectors (<emmintrin.h>).
#if defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2)
#define QUILL_HAS_SSE2 1
#endif

// The identifier of one of the platform's interfaces.
#define QUILL_ID_OF(interface_type) __uuidof(interface_type)

// Defined where the platform's headers leave out what the platform has had for long.
#if defined(__MINGW32__)
#define QUILL_HEADERS_ARE_SHORT 1
#endif
