#pragma once

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGVector.h>

namespace osg {

class DistanceLOD;
typedef FCPtr<GroupPtr, DistanceLOD> DistanceLODPtr;
typedef RefPtr<DistanceLODPtr> DistanceLODRefPtr;

/// Chooses among its children, finest first, by the eye's distance from the centre when drawn.
class OSG_SYSTEMLIB_DLLMAPPING DistanceLOD : public Group {
    OSG_CONTAINER(DistanceLOD, Group)

public:
    enum : UInt32 { CenterFieldId = Inherited::NextFieldId, RangeFieldId, NextFieldId };
    static constexpr BitVector CenterFieldMask = fieldMask(CenterFieldId);
    static constexpr BitVector RangeFieldMask = fieldMask(RangeFieldId);

    Pnt3f& getCenter() { return center.getValue(); }
    const Pnt3f& getCenter() const { return center.getValue(); }
    void setCenter(const Pnt3f& value) { center.setValue(value); }
    MFReal32& getRange() { return range; }
    Real32& getRange(UInt32 index) { return range[index]; }
    MFReal32* getMFRange() { return &range; }

protected:
    DistanceLOD() = default;

private:
    SField<Pnt3f> center;
    MFReal32 range;
};

} // namespace osg
