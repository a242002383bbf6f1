/// Compiles the file TESK_KERNEL once for each InstructionSet: its functions then exist in the namespaces `baseline`
/// and `avx2`, which TESK_CALL_KERNEL chooses from.
///
/// The file uses the types of Lanes.h and marks its inline functions TESK_ALWAYS_INLINE. Neither includes anything, for
/// that would be compiled for AVX2 and might take the place of what other files use.
///
/// \code
/// #define TESK_KERNEL <measurement/acceleration/NearestKernel.inl>
/// #include <measurement/acceleration/vector/CompileKernel.h>
///
/// float findNearest(const float* values, InstructionSet set) { return TESK_CALL_KERNEL(set, findNearest, values); }
/// \endcode

#include <measurement/acceleration/vector/InstructionSet.h>

// NOLINTBEGIN(bugprone-suspicious-include)
#define TESK_ALWAYS_INLINE inline __attribute__((always_inline))

namespace tesk::measurement::acceleration {
namespace {

// Two registers of four numbers, which all processors of the platform have.
namespace baseline {
#define TESK_REGISTER_BYTES 16
#include <measurement/acceleration/vector/Lanes.h>
#include TESK_KERNEL
#undef TESK_REGISTER_BYTES
} // namespace baseline

#ifdef __x86_64__
#ifdef __clang__
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#pragma GCC push_options
#pragma GCC target("avx2")
#endif
namespace avx2 {
#define TESK_REGISTER_BYTES 32
#include <measurement/acceleration/vector/Lanes.h>
#include TESK_KERNEL
#undef TESK_REGISTER_BYTES
} // namespace avx2
#ifdef __clang__
#pragma clang attribute pop
#else
#pragma GCC pop_options
#endif
#define TESK_CALL_KERNEL(SET, FUNCTION, ...)                                                                           \
    ((SET) == InstructionSet::avx2 ? avx2::FUNCTION(__VA_ARGS__) : baseline::FUNCTION(__VA_ARGS__))
#else
#define TESK_CALL_KERNEL(SET, FUNCTION, ...) (static_cast<void>(SET), baseline::FUNCTION(__VA_ARGS__))
#endif

} // namespace
} // namespace tesk::measurement::acceleration
#undef TESK_ALWAYS_INLINE
#undef TESK_KERNEL
// NOLINTEND(bugprone-suspicious-include)
