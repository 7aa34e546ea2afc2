// The job of VectorState is to end a slow state of the processor that code of other libraries leaves behind.
#pragma once

namespace plotkit {

/// x86-64: while the upper halves of vector registers are in use, as they are after some fills of Qt's raster images,
/// each call of exp, log, pow or sin takes twenty times as long in a program that is built for all processors. To be
/// called before many such calls; costs next to nothing.
inline void EndSlowVectorState()
{
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__AVX__)
    if (__builtin_cpu_supports("avx"))
        asm volatile("vzeroupper");  // lower halves, which alone this code uses, stay
#endif
}

}  // namespace plotkit
