#pragma once

namespace tesk::measurement::acceleration {

/// What a kernel is compiled for. All sets give the same bits.
enum class InstructionSet {
    baseline, ///< what every processor of the platform has
    avx2
};

/// The best that this processor has.
InstructionSet getInstructionSet();

} // namespace tesk::measurement::acceleration
