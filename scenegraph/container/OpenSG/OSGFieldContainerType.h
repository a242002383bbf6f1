#pragma once

#include <OpenSG/OSGBaseTypes.h>
#include <OpenSG/OSGSystemDef.h>

#include <string>

namespace osg {

/// A name with value semantics, as container types give it.
class IDString {
public:
    explicit IDString(const Char8* text) : value(text) {}
    const Char8* str() const { return value.c_str(); }

private:
    std::string value;
};

/// Run-time description of a container class: name, number and ancestry.
class OSG_SYSTEMLIB_DLLMAPPING FieldContainerType {
public:
    FieldContainerType(const Char8* name, FieldContainerType* parent);
    FieldContainerType(const FieldContainerType&) = delete;
    FieldContainerType& operator=(const FieldContainerType&) = delete;

    const Char8* getCName() const { return name; }
    IDString getName() const { return IDString(name); }
    UInt32 getId() const { return id; }
    /// Attachments of one group replace each other; every type is a group of its own.
    UInt32 getGroupId() const { return id; }
    /// The type derived from, null at the root.
    FieldContainerType* getParent() const { return parent; }

    /// True for the type itself and for every ancestor.
    bool isDerivedFrom(const FieldContainerType& other) const {
        for (const FieldContainerType* type = this; type; type = type->parent)
            if (type == &other) return true;
        return false;
    }
    bool isNode() const;
    bool isNodeCore() const;
    bool isAttachment() const;

    friend bool operator==(const FieldContainerType& a, const FieldContainerType& b) { return &a == &b; }
    friend bool operator!=(const FieldContainerType& a, const FieldContainerType& b) { return &a != &b; }

private:
    const Char8* name;
    FieldContainerType* parent;
    UInt32 id;
};

} // namespace osg
