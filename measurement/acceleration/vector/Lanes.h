// Eight numbers side by side. Included by CompileKernel.h alone, once for each instruction set, inside its namespace.
//
// Every operation is the one of single-precision numbers, lane by lane and rounded alike. No operation of two roundings
// is ever contracted to one. Comparisons are false for NaN.

constexpr int laneCount = 8;
constexpr int registerCount = laneCount * int(sizeof(float)) / TESK_REGISTER_BYTES;

typedef float FloatRegister __attribute__((vector_size(TESK_REGISTER_BYTES)));
typedef int IntRegister __attribute__((vector_size(TESK_REGISTER_BYTES)));

/// Eight truths; all bits of a lane are set where it is true.
struct Mask {
    IntRegister part[registerCount];
};

struct Lanes {
    FloatRegister part[registerCount];

    Lanes() = default;
    /// The same number in every lane.
    TESK_ALWAYS_INLINE Lanes(float value) {
        for (FloatRegister& p : part) p = value - FloatRegister{};
    }
};

TESK_ALWAYS_INLINE Lanes lanes(float a, float b, float c, float d, float e, float f, float g, float h) {
    Lanes result;
#if TESK_REGISTER_BYTES == 32
    result.part[0] = FloatRegister{a, b, c, d, e, f, g, h};
#else
    result.part[0] = FloatRegister{a, b, c, d};
    result.part[1] = FloatRegister{e, f, g, h};
#endif
    return result;
}

/// One number in the first four lanes, another in the last four.
TESK_ALWAYS_INLINE Lanes halves(float low, float high) { return lanes(low, low, low, low, high, high, high, high); }

TESK_ALWAYS_INLINE Lanes load(const float* values) {
    Lanes result;
    __builtin_memcpy(&result, values, sizeof result);
    return result;
}

TESK_ALWAYS_INLINE void store(const Lanes& lanes, float* values) { __builtin_memcpy(values, &lanes, sizeof lanes); }

#define TESK_LANES_ARITHMETIC(OPERATOR)                                                                                \
    TESK_ALWAYS_INLINE Lanes operator OPERATOR(const Lanes& a, const Lanes& b) {                                       \
        Lanes result;                                                                                                  \
        for (int i = 0; i < registerCount; ++i) result.part[i] = a.part[i] OPERATOR b.part[i];                         \
        return result;                                                                                                 \
    }
TESK_LANES_ARITHMETIC(+)
TESK_LANES_ARITHMETIC(-)
TESK_LANES_ARITHMETIC(*)
TESK_LANES_ARITHMETIC(/)
#undef TESK_LANES_ARITHMETIC

#define TESK_LANES_COMPARISON(OPERATOR)                                                                                \
    TESK_ALWAYS_INLINE Mask operator OPERATOR(const Lanes& a, const Lanes& b) {                                        \
        Mask result;                                                                                                   \
        for (int i = 0; i < registerCount; ++i) result.part[i] = a.part[i] OPERATOR b.part[i];                         \
        return result;                                                                                                 \
    }
TESK_LANES_COMPARISON(<)
TESK_LANES_COMPARISON(<=)
TESK_LANES_COMPARISON(>)
TESK_LANES_COMPARISON(>=)
TESK_LANES_COMPARISON(==)
#undef TESK_LANES_COMPARISON

#define TESK_LANES_LOGIC(OPERATOR)                                                                                     \
    TESK_ALWAYS_INLINE Mask operator OPERATOR(const Mask& a, const Mask& b) {                                          \
        Mask result;                                                                                                   \
        for (int i = 0; i < registerCount; ++i) result.part[i] = a.part[i] OPERATOR b.part[i];                         \
        return result;                                                                                                 \
    }
TESK_LANES_LOGIC(&)
TESK_LANES_LOGIC(|)
#undef TESK_LANES_LOGIC

TESK_ALWAYS_INLINE Mask operator!(const Mask& a) {
    Mask result;
    for (int i = 0; i < registerCount; ++i) result.part[i] = ~a.part[i];
    return result;
}

/// The first where the mask is true, the second elsewhere.
TESK_ALWAYS_INLINE Lanes select(const Mask& mask, const Lanes& a, const Lanes& b) {
    Lanes result;
    for (int i = 0; i < registerCount; ++i)
        result.part[i] =
            (FloatRegister)(((IntRegister)a.part[i] & mask.part[i]) | ((IntRegister)b.part[i] & ~mask.part[i]));
    return result;
}

/// The sign changes, that of 0 and NaN too.
TESK_ALWAYS_INLINE Lanes operator-(const Lanes& a) {
    Lanes result;
    for (int i = 0; i < registerCount; ++i) result.part[i] = -a.part[i];
    return result;
}

TESK_ALWAYS_INLINE Lanes absolute(const Lanes& a) {
    Lanes result;
    for (int i = 0; i < registerCount; ++i)
        result.part[i] = (FloatRegister)((IntRegister)a.part[i] & (IntRegister{} + 0x7fffffff));
    return result;
}

/// As std::min(): the first of equals, and the first when either is NaN.
TESK_ALWAYS_INLINE Lanes min(const Lanes& a, const Lanes& b) {
    Lanes result;
    for (int i = 0; i < registerCount; ++i) result.part[i] = b.part[i] < a.part[i] ? b.part[i] : a.part[i];
    return result;
}

/// As std::max(): the first of equals, and the first when either is NaN.
TESK_ALWAYS_INLINE Lanes max(const Lanes& a, const Lanes& b) {
    Lanes result;
    for (int i = 0; i < registerCount; ++i) result.part[i] = a.part[i] < b.part[i] ? b.part[i] : a.part[i];
    return result;
}

/// One bit for each lane, that of the first lane lowest.
TESK_ALWAYS_INLINE unsigned toBits(const Mask& mask) {
#if TESK_REGISTER_BYTES == 32
    return unsigned(__builtin_ia32_movmskps256((FloatRegister)mask.part[0]));
#elif defined(__SSE2__)
    return unsigned(__builtin_ia32_movmskps((FloatRegister)mask.part[0])) |
           unsigned(__builtin_ia32_movmskps((FloatRegister)mask.part[1])) << 4;
#else
    unsigned bits = 0;
    for (int i = 0; i < laneCount; ++i) bits |= unsigned(mask.part[i / 4][i % 4] & 1) << i;
    return bits;
#endif
}

/// Eight vectors or points, with the operations of measurement/geometry/detail/VectorMath.h.
struct LaneVectors {
    Lanes x, y, z;
};

/// Points: arrays of eight numbers x, y and z.
template <class Points> TESK_ALWAYS_INLINE LaneVectors loadVectors(const Points& points) {
    return {load(points.x), load(points.y), load(points.z)};
}

/// Axis by axis, as min() and max().
TESK_ALWAYS_INLINE LaneVectors lowest(const LaneVectors& a, const LaneVectors& b) {
    return {min(a.x, b.x), min(a.y, b.y), min(a.z, b.z)};
}

TESK_ALWAYS_INLINE LaneVectors highest(const LaneVectors& a, const LaneVectors& b) {
    return {max(a.x, b.x), max(a.y, b.y), max(a.z, b.z)};
}

TESK_ALWAYS_INLINE LaneVectors operator-(const LaneVectors& a, const LaneVectors& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

TESK_ALWAYS_INLINE Lanes dot(const LaneVectors& a, const LaneVectors& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

TESK_ALWAYS_INLINE LaneVectors cross(const LaneVectors& a, const LaneVectors& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

TESK_ALWAYS_INLINE LaneVectors pointAt(const LaneVectors& origin, const Lanes& parameter,
                                       const LaneVectors& direction) {
    return {origin.x + parameter * direction.x, origin.y + parameter * direction.y, origin.z + parameter * direction.z};
}
