#include <measurement/acceleration/vector/InstructionSet.h>

namespace tesk::measurement::acceleration {

InstructionSet getInstructionSet() {
#ifdef __x86_64__
    static const bool hasAvx2 = __builtin_cpu_supports("avx2");
    if (hasAvx2) return InstructionSet::avx2;
#endif
    return InstructionSet::baseline;
}

} // namespace tesk::measurement::acceleration
