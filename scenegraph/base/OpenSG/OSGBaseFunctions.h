#pragma once

#include <OpenSG/OSGBaseTypes.h>
#include <OpenSG/OSGSystemDef.h>

#include <cmath>

namespace osg {

/// Starts the scene graph; before, no container can be created. Later calls do nothing. True on
/// success. The version is that of the headers that the caller was compiled with.
OSG_SYSTEMLIB_DLLMAPPING bool osgInit(Int32 argc, Char8** argv, UInt16 majorVersion = OSG_MAJOR_VERSION,
                                      UInt16 minorVersion = OSG_MINOR_VERSION,
                                      UInt16 releaseVersion = OSG_RELEASE_VERSION);

/// Shuts the scene graph down. Later calls do nothing. True on success.
OSG_SYSTEMLIB_DLLMAPPING bool osgExit();

typedef bool (*ExitFuncF)();
/// Has the next osgExit() call the function, the last added first; no container can be created then.
OSG_SYSTEMLIB_DLLMAPPING void addSystemExitFunction(ExitFuncF exitFunction);

/// The second when they are equal or one is NaN.
template <class T> constexpr T osgMin(T a, T b) { return a < b ? a : b; }

/// The second when they are equal or one is NaN.
template <class T> constexpr T osgMax(T a, T b) { return a > b ? a : b; }

template <class T> constexpr T osgabs(T value) { return value < T(0) ? static_cast<T>(-value) : value; }

/// NaN stays NaN.
template <class T> constexpr T osgClamp(T lowest, T value, T highest) {
    return value < lowest ? lowest : value > highest ? highest : value;
}

template <class T> T osgsqrt(T value) { return static_cast<T>(std::sqrt(value)); }

template <class T> T osgsin(T radians) { return static_cast<T>(std::sin(radians)); }

template <class T> T osgcos(T radians) { return static_cast<T>(std::cos(radians)); }

template <class T> T osgtan(T radians) { return static_cast<T>(std::tan(radians)); }

template <class T> T osgacos(T cosine) { return static_cast<T>(std::acos(cosine)); }

template <class T> constexpr T osgdegree2rad(T degrees) {
    return degrees / T(180) * static_cast<T>(3.14159265358979323846);
}

template <class T> constexpr T osgrad2degree(T radians) {
    return radians / static_cast<T>(3.14159265358979323846) * T(180);
}

template <class T> constexpr T deg2rad(T degrees) { return osgdegree2rad(degrees); }

template <class T> constexpr T rad2deg(T radians) { return osgrad2degree(radians); }

/// The smallest power of two that is not below the value; 1 for values below 1, 0 when the power
/// does not fit into 32 bits.
constexpr UInt32 osgnextpower2(UInt32 value) {
    UInt32 power = 1;
    while (power != 0 && power < value) power <<= 1;
    return power;
}

} // namespace osg
