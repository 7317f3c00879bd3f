#pragma once

/// Stands before a function that is a plain loop over many numbers: it is compiled a second time for processors with wider
/// registers, and the program takes the one that fits. Both give the same bits: no operation is contracted or reordered.
///
/// Note      the address sanitizer can't be there before the choice is made. Whoever wants the plain loops alone defines
///           the name as nothing
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HALVERN_WIDE_LOOPS
#endif
#endif
#if !defined(HALVERN_WIDE_LOOPS) && (!defined(__x86_64__) || defined(__SANITIZE_ADDRESS__))
#define HALVERN_WIDE_LOOPS
#endif
#if !defined(HALVERN_WIDE_LOOPS)
#define HALVERN_WIDE_LOOPS __attribute__((target_clones("avx2", "default")))
#endif
