// Eight triangles against eight. A kernel for CompileKernel.h.

/// Seen from a point near them, which keeps rounding small, along three directions at right angles.
struct GroupView {
    LaneVectors low, high;
    /// How far the corners are along the first direction.
    Lanes nearest, farthest;
    /// Where they are along the second and third.
    Lanes u[3], v[3];
};

TESK_ALWAYS_INLINE LaneVectors spread(const Quad& vector) { return {vector[0], vector[1], vector[2]}; }

TESK_ALWAYS_INLINE GroupView viewOf(const TriangleGroup& group, const GroupGap& gap) {
    GroupView view;
    LaneVectors corners[3];
    Lanes heights[3];
    for (int i = 0; i < 3; ++i) {
        corners[i] = loadVectors(group.corners[i]) - spread(gap.origin);
        heights[i] = dot(corners[i], spread(gap.directions[0]));
        view.u[i] = dot(corners[i], spread(gap.directions[1]));
        view.v[i] = dot(corners[i], spread(gap.directions[2]));
    }
    view.low = lowest(lowest(corners[0], corners[1]), corners[2]);
    view.high = highest(highest(corners[0], corners[1]), corners[2]);
    view.nearest = min(min(heights[0], heights[1]), heights[2]);
    view.farthest = max(max(heights[0], heights[1]), heights[2]);
    return view;
}

/// One triangle's number in every lane.
TESK_ALWAYS_INLINE Lanes repeat(const Lanes& numbers, int lane) {
    constexpr int inRegister = laneCount / registerCount;
    return numbers.part[lane / inRegister][lane % inRegister];
}

TESK_ALWAYS_INLINE LaneVectors repeat(const LaneVectors& vectors, int lane) {
    return {repeat(vectors.x, lane), repeat(vectors.y, lane), repeat(vectors.z, lane)};
}

TESK_ALWAYS_INLINE Lanes squaredBoxGaps(const LaneVectors& low, const LaneVectors& high, const GroupView& second) {
    const LaneVectors apart = highest(second.low - high, low - second.high);
    const LaneVectors gap = highest(apart, {0.0f, 0.0f, 0.0f});
    return dot(gap, gap);
}

/// Triangles in a plane.
struct Shadows {
    Lanes u[3], v[3];
};

/// The square of the gap between shadows along a vector; 0 without one.
TESK_ALWAYS_INLINE Lanes squaredShadowGap(const Shadows& a, const Shadows& b, const Lanes& u, const Lanes& v) {
    Lanes alongA[3], alongB[3];
    for (int i = 0; i < 3; ++i) {
        alongA[i] = u * a.u[i] + v * a.v[i];
        alongB[i] = u * b.u[i] + v * b.v[i];
    }
    const Lanes lowA = min(min(alongA[0], alongA[1]), alongA[2]), highA = max(max(alongA[0], alongA[1]), alongA[2]);
    const Lanes lowB = min(min(alongB[0], alongB[1]), alongB[2]), highB = max(max(alongB[0], alongB[1]), alongB[2]);
    const Lanes apart = max(lowB - highA, lowA - highB);
    const Lanes squaredLength = u * u + v * v;
    return select((apart > 0.0f) & (squaredLength > 1e-30f), apart / squaredLength * apart, 0.0f);
}

/// The greatest seen across an edge of the first.
TESK_ALWAYS_INLINE Lanes squaredGapAcrossEdges(const Shadows& a, const Shadows& b) {
    Lanes greatest = 0.0f;
    for (int i = 0; i < 3; ++i) {
        const int next = (i + 1) % 3;
        greatest = max(greatest, squaredShadowGap(a, b, a.v[i] - a.v[next], a.u[next] - a.u[i]));
    }
    return greatest;
}

inline void findNearInGroups(const TriangleGroup& group1, const TriangleGroup& group2, const GroupGap& gap,
                             unsigned char* near) {
    const GroupView first = viewOf(group1, gap), second = viewOf(group2, gap);
    Shadows b;
    for (int corner = 0; corner < 3; ++corner) {
        b.u[corner] = second.u[corner];
        b.v[corner] = second.v[corner];
    }
    for (int i = 0; i < laneCount; ++i) {
        const Lanes boxGaps = squaredBoxGaps(repeat(first.low, i), repeat(first.high, i), second);
        const Lanes along = max(0.0f, second.nearest - repeat(first.farthest, i) - gap.slackOfLength);
        const Lanes squaredAlong = along * along;
        near[i] = static_cast<unsigned char>(toBits(!(max(boxGaps, squaredAlong) > gap.farthest)));
        if (near[i] == 0) continue;
        Shadows a;
        for (int corner = 0; corner < 3; ++corner) {
            a.u[corner] = repeat(first.u[corner], i);
            a.v[corner] = repeat(first.v[corner], i);
        }
        const Lanes u = b.u[0] + b.u[1] + b.u[2] - (a.u[0] + a.u[1] + a.u[2]);
        const Lanes v = b.v[0] + b.v[1] + b.v[2] - (a.v[0] + a.v[1] + a.v[2]);
        near[i] &= static_cast<unsigned char>(toBits(!(squaredAlong + squaredShadowGap(a, b, u, v) > gap.farthest)));
        if (near[i] == 0) continue;
        const Lanes acrossEdges = max(squaredGapAcrossEdges(a, b), squaredGapAcrossEdges(b, a));
        near[i] &= static_cast<unsigned char>(toBits(!(squaredAlong + acrossEdges > gap.farthest)));
    }
}
