#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <algorithm>
#include <string>
#include <vector>

namespace osg {

/// A field of one value.
template <class T> class SField {
public:
    SField() = default;
    explicit SField(const T& initial) : value(initial) {}

    T& getValue() { return value; }
    const T& getValue() const { return value; }
    void setValue(const T& newValue) { value = newValue; }

private:
    T value{};
};

/// A field of many values in contiguous storage; no range checks.
template <class T> class MField : public std::vector<T> {
public:
    using std::vector<T>::vector;
    using typename std::vector<T>::iterator;
    using typename std::vector<T>::const_iterator;

    UInt32 getSize() const { return static_cast<UInt32>(this->size()); }
    void addValue(const T& value) { this->push_back(value); }
    T& getValue(UInt32 index) { return (*this)[index]; }
    const T& getValue(UInt32 index) const { return (*this)[index]; }
    void setValue(const T& value, UInt32 index) { (*this)[index] = value; }
    std::vector<T>& getValues() { return *this; }
    const std::vector<T>& getValues() const { return *this; }
    void setValues(const std::vector<T>& values) { static_cast<std::vector<T>&>(*this) = values; }

    /// The first element equal to the value, or end(); linear.
    iterator find(const T& value) { return std::find(this->begin(), this->end(), value); }
    const_iterator find(const T& value) const { return std::find(this->begin(), this->end(), value); }
};

typedef SField<bool> SFBool;
typedef SField<Int32> SFInt32;
typedef SField<UInt32> SFUInt32;
typedef SField<Real32> SFReal32;
typedef SField<std::string> SFString;

typedef MField<Real32> MFReal32;
typedef MField<Int32> MFInt32;
typedef MField<UInt8> MFUInt8;
typedef MField<UInt16> MFUInt16;
typedef MField<UInt32> MFUInt32;

} // namespace osg
