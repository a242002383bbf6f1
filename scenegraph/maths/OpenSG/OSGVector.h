#pragma once

#include <OpenSG/OSGBaseFunctions.h>

#include <limits>
#include <ostream>

namespace osg {

template <class T, UInt32 Size> class Vector;

/// Calls the operation with 0, 1, ... Size - 1, in order and without a loop.
template <UInt32 Size, class Operation> constexpr void forEachComponent(Operation operation) {
    static_assert(Size >= 2 && Size <= 4);
    operation(0);
    operation(1);
    if constexpr (Size > 2) operation(2);
    if constexpr (Size > 3) operation(3);
}

/// A place in space: a plain array of 2 to 4 components.
///
/// Point minus point is a vector, point plus or minus vector a point. A vector converts to a point
/// by construction but cannot be assigned to one. Comparison allows a difference of Eps in each
/// component; NaN, and infinity against infinity, are unequal.
template <class T, UInt32 Size> class Point {
public:
    using ValueType = T;
    using VectorType = Vector<T, Size>;

    static const Point Null;

    constexpr Point() = default;
    /// (x, 0, ...): the other components are 0, not x.
    explicit constexpr Point(T x) { setValues(x, T(0), T(0), T(0)); }
    /// Components that the type does not have are ignored, those not given are 0.
    constexpr Point(T x, T y) { setValues(x, y, T(0), T(0)); }
    constexpr Point(T x, T y, T z) { setValues(x, y, z, T(0)); }
    constexpr Point(T x, T y, T z, T w) { setValues(x, y, z, w); }
    explicit constexpr Point(const T* components) { setValue(components); }
    /// Converts each component; drops those that are too many and fills up with 0.
    template <class Other, UInt32 OtherSize> constexpr Point(const Point<Other, OtherSize>& other) { setValue(other); }

    constexpr Point(const Point&) = default;
    constexpr Point& operator=(const Point&) = default;
    template <class Other, UInt32 OtherSize> Point& operator=(const Vector<Other, OtherSize>&) = delete;

    constexpr T x() const { return values[0]; }
    constexpr T y() const { return values[1]; }
    constexpr T z() const {
        static_assert(Size > 2);
        return values[2];
    }
    constexpr T w() const {
        static_assert(Size > 3);
        return values[3];
    }
    constexpr T& operator[](UInt32 index) { return values[index]; }
    constexpr const T& operator[](UInt32 index) const { return values[index]; }
    constexpr T* getValues() { return values; }
    constexpr const T* getValues() const { return values; }
    constexpr void getSeparateValues(T& x, T& y) const {
        static_assert(Size == 2);
        x = values[0];
        y = values[1];
    }
    constexpr void getSeparateValues(T& x, T& y, T& z) const {
        static_assert(Size == 3);
        x = values[0];
        y = values[1];
        z = values[2];
    }
    constexpr void getSeparateValues(T& x, T& y, T& z, T& w) const {
        static_assert(Size == 4);
        x = values[0];
        y = values[1];
        z = values[2];
        w = values[3];
    }

    constexpr void setNull() { *this = Point(); }
    constexpr void setValues(T x, T y) { setValues(x, y, T(0), T(0)); }
    constexpr void setValues(T x, T y, T z) { setValues(x, y, z, T(0)); }
    constexpr void setValues(T x, T y, [[maybe_unused]] T z, [[maybe_unused]] T w) {
        values[0] = x;
        values[1] = y;
        if constexpr (Size > 2) values[2] = z;
        if constexpr (Size > 3) values[3] = w;
    }
    constexpr void setValue(const T* components) {
        forEachComponent<Size>([&](UInt32 i) { values[i] = components[i]; });
    }
    template <class Other, UInt32 OtherSize> constexpr void setValue(const Point<Other, OtherSize>& other) {
        forEachComponent<Size>([&](UInt32 i) { values[i] = i < OtherSize ? static_cast<T>(other[i]) : T(0); });
    }

    constexpr void negate() { *this = -*this; }
    T dist(const Point& other) const { return osgsqrt(dist2(other)); }
    /// The squared distance.
    constexpr T dist2(const Point& other) const { return (*this - other).squareLength(); }
    /// The vector from the origin to this point.
    constexpr VectorType subZero() const { return *this; }
    /// The largest component, but at least the type's smallest normal number.
    constexpr T maxValue() const {
        T largest = std::numeric_limits<T>::min();
        forEachComponent<Size>([&](UInt32 i) { largest = osgMax(values[i], largest); });
        return largest;
    }
    constexpr bool isZero() const { return equals(Point(), static_cast<T>(Eps)); }
    constexpr bool equals(const Point& other, T tolerance) const {
        bool equal = true;
        forEachComponent<Size>([&](UInt32 i) { equal = equal && osgabs(values[i] - other.values[i]) <= tolerance; });
        return equal;
    }

    constexpr Point operator+(const VectorType& offset) const {
        Point result(*this);
        return result += offset;
    }
    constexpr Point operator-(const VectorType& offset) const {
        Point result(*this);
        return result -= offset;
    }
    constexpr VectorType operator-(const Point& other) const {
        VectorType result(*this);
        return result -= other;
    }
    constexpr Point operator*(T factor) const {
        Point result(*this);
        return result *= factor;
    }
    /// Not const: a const point has no unary minus.
    constexpr Point operator-() {
        Point result;
        forEachComponent<Size>([&](UInt32 i) { result.values[i] = static_cast<T>(-values[i]); });
        return result;
    }
    constexpr Point& operator+=(const Point& other) {
        forEachComponent<Size>([&](UInt32 i) { values[i] += other.values[i]; });
        return *this;
    }
    constexpr Point& operator-=(const Point& other) {
        forEachComponent<Size>([&](UInt32 i) { values[i] -= other.values[i]; });
        return *this;
    }
    constexpr Point& operator*=(T factor) {
        forEachComponent<Size>([&](UInt32 i) { values[i] *= factor; });
        return *this;
    }
    constexpr Point& operator/=(T divisor) {
        forEachComponent<Size>([&](UInt32 i) { values[i] /= divisor; });
        return *this;
    }

    constexpr bool operator==(const Point& other) const { return equals(other, static_cast<T>(Eps)); }
    constexpr bool operator!=(const Point& other) const { return !(*this == other); }
    /// Lexicographic and exact.
    constexpr bool operator<(const Point& other) const {
        for (UInt32 i = 0; i < Size; ++i) {
            if (values[i] < other.values[i]) return true;
            if (other.values[i] < values[i]) return false;
        }
        return false;
    }

private:
    T values[Size] = {};
};

template <class T, UInt32 Size> const Point<T, Size> Point<T, Size>::Null{};

/// A direction with a length. It is a point with more operations, so it may stand wherever a point
/// is read or, by reference, written.
template <class T, UInt32 Size> class Vector : public Point<T, Size> {
public:
    using PointType = Point<T, Size>;

    static const Vector Null;

    constexpr Vector() = default;
    explicit constexpr Vector(T x) : PointType(x) {}
    constexpr Vector(T x, T y) : PointType(x, y) {}
    constexpr Vector(T x, T y, T z) : PointType(x, y, z) {}
    constexpr Vector(T x, T y, T z, T w) : PointType(x, y, z, w) {}
    explicit constexpr Vector(const T* components) : PointType(components) {}
    template <class Other, UInt32 OtherSize>
    constexpr Vector(const Point<Other, OtherSize>& other) : PointType(other) {}

    /// The point that this vector leads to from the origin.
    constexpr const PointType& addToZero() const { return *this; }

    T length() const { return osgsqrt(squareLength()); }
    constexpr T squareLength() const { return dot(*this); }
    /// A vector shorter than Eps stays as it is.
    void normalize() {
        const T currentLength = length();
        if (currentLength < static_cast<T>(Eps)) return;
        *this *= T(1) / currentLength;
    }
    constexpr T dot(const PointType& other) const {
        T sum = (*this)[0] * other[0] + (*this)[1] * other[1];
        if constexpr (Size > 2) sum += (*this)[2] * other[2];
        if constexpr (Size > 3) sum += (*this)[3] * other[3];
        return sum;
    }
    constexpr Vector cross(const PointType& other) const {
        static_assert(Size == 3);
        return Vector((*this)[1] * other[2] - (*this)[2] * other[1], (*this)[2] * other[0] - (*this)[0] * other[2],
                      (*this)[0] * other[1] - (*this)[1] * other[0]);
    }
    constexpr void crossThis(const PointType& other) { *this = cross(other); }
    /// Radians, 0 to pi; NaN when one of the vectors is zero.
    T enclosedAngle(const Vector& other) const {
        const T cosine = dot(other) / (length() * other.length());
        return osgacos(osgClamp(T(-1), cosine, T(1)));
    }

    constexpr Vector operator+(const PointType& other) const {
        Vector result(*this);
        return result += other;
    }
    constexpr Vector operator-(const PointType& other) const {
        Vector result(*this);
        return result -= other;
    }
    constexpr Vector operator*(T factor) const {
        Vector result(*this);
        return result *= factor;
    }
    constexpr Vector operator-() const {
        Vector result;
        forEachComponent<Size>([&](UInt32 i) { result[i] = static_cast<T>(-(*this)[i]); });
        return result;
    }
    /// The dot product.
    constexpr T operator*(const PointType& other) const { return dot(other); }
    /// The cross product.
    constexpr Vector operator%(const PointType& other) const { return cross(other); }
    constexpr Vector& operator+=(const PointType& other) {
        PointType::operator+=(other);
        return *this;
    }
    constexpr Vector& operator-=(const PointType& other) {
        PointType::operator-=(other);
        return *this;
    }
    constexpr Vector& operator*=(T factor) {
        PointType::operator*=(factor);
        return *this;
    }
    constexpr Vector& operator/=(T divisor) {
        PointType::operator/=(divisor);
        return *this;
    }
};

template <class T, UInt32 Size> const Vector<T, Size> Vector<T, Size>::Null{};

template <class T, UInt32 Size> constexpr Point<T, Size> operator*(T factor, const Point<T, Size>& point) {
    return point * factor;
}

template <class T, UInt32 Size> constexpr Vector<T, Size> operator*(T factor, const Vector<T, Size>& vector) {
    return vector * factor;
}

template <class T, UInt32 Size> std::ostream& operator<<(std::ostream& stream, const Point<T, Size>& point) {
    stream << point[0];
    for (UInt32 i = 1; i < Size; ++i) stream << ", " << point[i];
    return stream;
}

using Pnt2f = Point<Real32, 2>;
using Pnt3f = Point<Real32, 3>;
using Pnt4f = Point<Real32, 4>;
using Pnt2d = Point<Real64, 2>;
using Pnt3d = Point<Real64, 3>;
using Pnt4d = Point<Real64, 4>;
using Pnt2s = Point<Int16, 2>;
using Pnt3s = Point<Int16, 3>;
using Pnt4s = Point<Int16, 4>;

using Vec2f = Vector<Real32, 2>;
using Vec3f = Vector<Real32, 3>;
using Vec4f = Vector<Real32, 4>;
using Vec2d = Vector<Real64, 2>;
using Vec3d = Vector<Real64, 3>;
using Vec4d = Vector<Real64, 4>;
using Vec2s = Vector<Int16, 2>;
using Vec3s = Vector<Int16, 3>;
using Vec4s = Vector<Int16, 4>;
using Vec3b = Vector<Int8, 3>;

} // namespace osg
