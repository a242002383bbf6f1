#pragma once

#include <OpenSG/OSGBaseFunctions.h>

#include <ostream>
#include <type_traits>

namespace osg {

/// Red, green, blue and, with four components, alpha; a plain array. Nothing clamps the components.
///
/// Everything starts at 0, alpha too. Operators between a colour and a scalar are not const;
/// those between two colours work on each component. Comparison allows a difference of Eps.
template <class T, UInt32 Size> class Color {
    static_assert(Size == 3 || Size == 4);

public:
    using ValueType = T;

    constexpr Color() = default;
    template <UInt32 S = Size, std::enable_if_t<S == 3, int> = 0>
    constexpr Color(T red, T green, T blue) : values{red, green, blue} {}
    template <UInt32 S = Size, std::enable_if_t<S == 4, int> = 0>
    constexpr Color(T red, T green, T blue, T alpha) : values{red, green, blue, alpha} {}

    constexpr void clear() { *this = Color(); }
    constexpr void setValuesRGB(T red, T green, T blue) { *this = Color(red, green, blue); }
    constexpr void setValuesRGBA(T red, T green, T blue, T alpha) { *this = Color(red, green, blue, alpha); }

    constexpr T red() const { return values[0]; }
    constexpr T green() const { return values[1]; }
    constexpr T blue() const { return values[2]; }
    constexpr T alpha() const {
        static_assert(Size == 4);
        return values[3];
    }
    constexpr T& operator[](UInt32 index) { return values[index]; }
    constexpr const T& operator[](UInt32 index) const { return values[index]; }
    constexpr const T* getValuesRGB() const {
        static_assert(Size == 3);
        return values;
    }
    constexpr const T* getValuesRGBA() const {
        static_assert(Size == 4);
        return values;
    }

    constexpr Color operator+(const Color& other) const {
        return combined(other, [](T a, T b) { return a + b; });
    }
    constexpr Color operator-(const Color& other) const {
        return combined(other, [](T a, T b) { return a - b; });
    }
    constexpr Color operator*(const Color& other) const {
        return combined(other, [](T a, T b) { return a * b; });
    }
    constexpr Color operator/(const Color& other) const {
        return combined(other, [](T a, T b) { return a / b; });
    }
    constexpr Color operator+(T value) { return *this + filled(value); }
    constexpr Color operator-(T value) { return *this - filled(value); }
    constexpr Color operator*(T factor) { return *this * filled(factor); }
    constexpr Color operator/(T divisor) { return *this / filled(divisor); }

    constexpr bool equals(const Color& other, T tolerance) const {
        for (UInt32 i = 0; i < Size; ++i)
            if (!(osgabs(values[i] - other.values[i]) <= tolerance)) return false;
        return true;
    }
    constexpr bool operator==(const Color& other) const { return equals(other, static_cast<T>(Eps)); }
    constexpr bool operator!=(const Color& other) const { return !(*this == other); }
    /// Lexicographic and exact.
    constexpr bool operator<(const Color& other) const {
        for (UInt32 i = 0; i < Size; ++i) {
            if (values[i] < other.values[i]) return true;
            if (other.values[i] < values[i]) return false;
        }
        return false;
    }

private:
    static constexpr Color filled(T value) {
        Color result;
        for (T& component : result.values) component = value;
        return result;
    }
    template <class Operation> constexpr Color combined(const Color& other, Operation operation) const {
        Color result;
        for (UInt32 i = 0; i < Size; ++i) result.values[i] = static_cast<T>(operation(values[i], other.values[i]));
        return result;
    }

    T values[Size] = {};
};

/// The components as numbers, separated by blanks.
template <class T, UInt32 Size> std::ostream& operator<<(std::ostream& stream, const Color<T, Size>& color) {
    stream << +color[0];
    for (UInt32 i = 1; i < Size; ++i) stream << ' ' << +color[i];
    return stream;
}

using Color3f = Color<Real32, 3>;
using Color4f = Color<Real32, 4>;
using Color3ub = Color<UInt8, 3>;
using Color4ub = Color<UInt8, 4>;

} // namespace osg
