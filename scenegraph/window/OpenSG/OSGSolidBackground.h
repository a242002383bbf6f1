#pragma once

#include <OpenSG/OSGBackground.h>
#include <OpenSG/OSGColor.h>

namespace osg {

class SolidBackground;
typedef FCPtr<BackgroundPtr, SolidBackground> SolidBackgroundPtr;
typedef RefPtr<SolidBackgroundPtr> SolidBackgroundRefPtr;

/// One colour, black until set, and one depth, 1 (the farthest) until set.
class OSG_SYSTEMLIB_DLLMAPPING SolidBackground : public Background {
    OSG_CONTAINER(SolidBackground, Background)

public:
    enum : UInt32 { ColorFieldId = Inherited::NextFieldId, AlphaFieldId = ColorFieldId + 2, DepthFieldId, NextFieldId };
    static constexpr BitVector ColorFieldMask = fieldMask(ColorFieldId);
    static constexpr BitVector AlphaFieldMask = fieldMask(AlphaFieldId);
    static constexpr BitVector DepthFieldMask = fieldMask(DepthFieldId);

    const Color3f& getColor() const { return color; }
    void setColor(const Color3f& value) { color = value; }
    Real32 getAlpha() const { return alpha; }
    void setAlpha(Real32 value) { alpha = value; }
    Real32 getDepth() const { return depth; }
    void setDepth(Real32 value) { depth = value; }

    void clear(DrawActionBase* action, Viewport* viewport) override;

protected:
    SolidBackground() = default;

private:
    Color3f color{0.0f, 0.0f, 0.0f};
    Real32 alpha = 1.0f;
    Real32 depth = 1.0f;
};

} // namespace osg
