// The squared distances of detail::measureSegmentTriangle() for eight segments and eight triangles, with the operations
// of measurement/geometry/detail/ (LineSegment.h, LineTriangle.h, TrianglePoint.h) in their order. What branches there
// is selected here; the same names are used. Included by kernels for CompileKernel.h.

struct LaneSegments {
    LaneVectors start, end;
};

struct LaneTriangles {
    LaneVectors p0, p1, p2;
};

struct LineDistances {
    Lanes squaredDistance;
    Lanes lineParameter;
};

TESK_ALWAYS_INLINE LineDistances measureLineSegment(const LaneVectors& origin, const LaneVectors& direction,
                                                    const Lanes& a00, const LaneVectors& start,
                                                    const LaneVectors& end) {
    const LaneVectors offset = origin - start;
    const LaneVectors edge = end - start;
    const Lanes a01 = dot(edge, direction);
    const Lanes a11 = dot(edge, edge);
    const Lanes b0 = dot(direction, offset);
    const Lanes c = dot(offset, offset);
    const Lanes det = a01 * a01 - a11 * a00;
    const Lanes unclamped = (b0 * a01 - a00 * b0) / det;
    const Mask isWithin = ((det < 0.0f) | (det > 0.0f)) & (unclamped >= 0.0f);
    const Lanes t = select(unclamped > 1.0f, 1.0f, unclamped);
    const Lanes b1 = dot(edge, offset);
    const Lanes s = select(isWithin, a01 * t - b0, -b0) / a00;
    const Lanes atEdge = c + 2.0f * ((b0 - a01 * t) * s - b1 * t) + a11 * t * t + s * s * a00;
    const Lanes atStart = c + 2.0f * s * b0 + s * s * a00;
    return {select(isWithin, atEdge, atStart), s};
}

TESK_ALWAYS_INLINE LineDistances measureLineEdges(const LaneVectors& origin, const LaneVectors& direction,
                                                  const LaneTriangles& triangle) {
    const Lanes a00 = dot(direction, direction);
    LineDistances best{3.4028235e38f, __builtin_nanf("")};
    const LaneVectors* const edges[3][2] = {
        {&triangle.p2, &triangle.p0}, {&triangle.p0, &triangle.p1}, {&triangle.p1, &triangle.p2}};
    for (const auto& edge : edges) {
        const LineDistances candidate = measureLineSegment(origin, direction, a00, *edge[0], *edge[1]);
        const Mask isBetter = candidate.squaredDistance < best.squaredDistance;
        best.squaredDistance = select(isBetter, candidate.squaredDistance, best.squaredDistance);
        best.lineParameter = select(isBetter, candidate.lineParameter, best.lineParameter);
    }
    return best;
}

/// Where the lines pierce the triangles.
struct Crossings {
    Mask exists;
    Lanes lineParameter;
};

TESK_ALWAYS_INLINE Crossings findCrossings(const LaneVectors& origin, const LaneVectors& direction,
                                           const LaneTriangles& triangle) {
    const LaneVectors edge0 = triangle.p1 - triangle.p0;
    const LaneVectors edge1 = triangle.p2 - triangle.p0;
    const LaneVectors normal = cross(edge0, edge1);
    const Lanes denominator = dot(normal, direction);
    const Lanes s = dot(triangle.p0 - origin, normal) / denominator;
    const LaneVectors offset = pointAt(origin, s, direction) - triangle.p0;

    const Lanes x = absolute(normal.x), y = absolute(normal.y), z = absolute(normal.z);
    const Mask isYAtLeastZ = z <= y;
    const Mask facesX = (isYAtLeastZ & (y <= x)) | ((z <= x) & !isYAtLeastZ);
    const Mask facesY = isYAtLeastZ & !facesX;
    // The plane's coordinates: y and z, x and z, or x and y. Factors may change places, terms must not.
    const Lanes offsetA = select(facesX, offset.y, offset.x), offsetB = select(facesX | facesY, offset.z, offset.y);
    const Lanes edge0A = select(facesX, edge0.y, edge0.x), edge0B = select(facesX | facesY, edge0.z, edge0.y);
    const Lanes edge1A = select(facesX, edge1.y, edge1.x), edge1B = select(facesX | facesY, edge1.z, edge1.y);
    const Lanes negatedY = edge0.x * edge1.z - edge0.z * edge1.x;
    const Lanes divisor = select(facesX, normal.x, select(facesY, negatedY, normal.z));
    const Lanes u = (offsetA * edge1B - offsetB * edge1A) / divisor;
    const Lanes w = (offsetB * edge0A - offsetA * edge0B) / divisor;
    return {((denominator < 0.0f) | (denominator > 0.0f)) & (u >= 0.0f) & (w >= 0.0f) & (u + w <= 1.0f), s};
}

TESK_ALWAYS_INLINE Lanes measureTrianglePoint(const LaneTriangles& triangle, const LaneVectors& point) {
    const LaneVectors edge0 = triangle.p1 - triangle.p0;
    const LaneVectors edge1 = triangle.p2 - triangle.p0;
    const LaneVectors pointToP0 = triangle.p0 - point;
    const Lanes a00 = dot(edge0, edge0), a01 = dot(edge0, edge1), a11 = dot(edge1, edge1);
    const Lanes b0 = dot(pointToP0, edge0), b1 = dot(pointToP0, edge1), c = dot(pointToP0, pointToP0);

    const Lanes determinant = absolute(a00 * a11 - a01 * a01);
    const Lanes s = a01 * b1 - a11 * b0;
    const Lanes t = a01 * b0 - a00 * b1;
    const Mask isNear = s + t <= determinant;
    const Mask sIsPositive = s >= 0.0f, tIsPositive = t >= 0.0f;
    const Mask b0IsNegative = b0 < 0.0f, b1IsNegative = b1 < 0.0f;

    // The part of the parameter plane.
    const Mask isInside = isNear & sIsPositive & tIsPositive;
    const Mask isBeyondP0 = isNear & !sIsPositive & (t < 0.0f);
    const Mask isOnEdge0 = (isNear & sIsPositive & !tIsPositive) | (isBeyondP0 & b0IsNegative);
    const Mask isOnEdge1 = isNear & !sIsPositive & !(isBeyondP0 & b0IsNegative);
    const Mask isBeyondP2 = !(isNear | sIsPositive);
    const Mask isBeyondEdge = sIsPositive & tIsPositive & !isNear;
    const Mask isBeyondP1 = sIsPositive & !(isNear | tIsPositive);

    // Beyond an end of the edge from p1 to p2, either that edge is nearest or another one.
    const Lanes alongEdge0 = select(isBeyondP1, a00 + b0, a01 + b0);
    const Lanes alongEdge1 = select(isBeyondP1, a01 + b1, a11 + b1);
    const Mask isAlongP1 = isBeyondP1 & (alongEdge0 > alongEdge1);
    const Mask isAlongP2 = isBeyondP2 & (alongEdge1 > alongEdge0);
    const Mask isOffP1 = isBeyondP1 & !isAlongP1;
    const Mask isOffP2 = isBeyondP2 & !isAlongP2;
    const Lanes numerator =
        select(isAlongP1, alongEdge0 - alongEdge1, select(isAlongP2, alongEdge1 - alongEdge0, (a11 + b1) - a01 - b0));
    const Lanes denominator = a00 - 2.0f * a01 + a11;
    const Mask isAtEnd = denominator <= numerator;
    const Mask isBeforeEdge = isBeyondEdge & (numerator <= 0.0f);
    const Mask isOnEdgeP1P2 = isAlongP1 | isAlongP2 | (isBeyondEdge & !isBeforeEdge);

    const Mask isAtP1 = (isOnEdge0 & b0IsNegative & (a00 <= -b0)) | (isOnEdgeP1P2 & !isAlongP1 & isAtEnd) |
                        (isOffP1 & (alongEdge0 <= 0.0f));
    const Mask isAtP2 = (isOnEdge1 & b1IsNegative & (a11 <= -b1)) | (isAlongP1 & isAtEnd) | isBeforeEdge |
                        (isOffP2 & (alongEdge1 <= 0.0f));
    const Mask isAtP0 = (isOnEdge0 & !b0IsNegative) | (isOnEdge1 & !b1IsNegative) | (isOffP1 & !isAtP1 & (b0 >= 0.0f)) |
                        (isOffP2 & !isAtP2 & (b1 >= 0.0f));
    const Mask isWithinEdge0 = (isOnEdge0 | isOffP1) & !isAtP0 & !isAtP1;
    const Mask isWithinEdge1 = (isOnEdge1 | isOffP2) & !isAtP0 & !isAtP2;

    // The distance there. Parameters first, in the order of the divisions.
    const Lanes quotient = select(isInside, 1.0f, numerator) / select(isInside, determinant, denominator);
    const Lanes rest = 1.0f - quotient;
    const Lanes atS = select(isInside, s * quotient, select(isAlongP1, rest, quotient));
    const Lanes atT = select(isInside, t * quotient, select(isAlongP1, quotient, rest));
    const Lanes atPlace = atS * (a00 * atS + a01 * atT + 2.0f * b0) + atT * (a01 * atS + a11 * atT + 2.0f * b1) + c;
    const Lanes b = select(isWithinEdge0, b0, b1);
    const Lanes withinEdge = b * (-b / select(isWithinEdge0, a00, a11)) + c;
    Lanes nearest = select(isWithinEdge0 | isWithinEdge1, withinEdge, atPlace);
    nearest = select(isAtP0, c, nearest);
    nearest = select(isAtP1, a00 + 2.0f * b0 + c, nearest);
    nearest = select(isAtP2, a11 + 2.0f * b1 + c, nearest);
    return select(nearest >= 0.0f, nearest, 0.0f);
}

TESK_ALWAYS_INLINE Lanes measureSegmentTriangle(const LaneSegments& segment, const LaneTriangles& triangle) {
    const LaneVectors direction = segment.end - segment.start;
    const Crossings crossings = findCrossings(segment.start, direction, triangle);
    const LineDistances byEdges = measureLineEdges(segment.start, direction, triangle);
    const Lanes parameter = select(crossings.exists, crossings.lineParameter, byEdges.lineParameter);
    const Lanes byLine = select(crossings.exists, 0.0f, byEdges.squaredDistance);
    const Mask isOnSegment = (parameter >= 0.0f) & (parameter <= 1.0f);
    const Mask isPastEnd = parameter > 1.0f;
    const LaneVectors end{select(isPastEnd, segment.end.x, segment.start.x),
                          select(isPastEnd, segment.end.y, segment.start.y),
                          select(isPastEnd, segment.end.z, segment.start.z)};
    return select(isOnSegment, byLine, measureTrianglePoint(triangle, end));
}
