#pragma once

#include <OpenSG/OSGBackground.h>
#include <OpenSG/OSGColor.h>

#include <vector>

namespace osg {

class GradientBackground;
typedef FCPtr<BackgroundPtr, GradientBackground> GradientBackgroundPtr;
typedef RefPtr<GradientBackgroundPtr> GradientBackgroundRefPtr;

/// Colours that change from the bottom to the top of the viewport.
///
/// Positions are heights, 0 at the bottom and 1 at the top, to be added from below upwards. Colours are interpolated
/// between the lines, and from black at the bottom and to black at the top where no line lies there. A single line
/// colours everything; without lines everything is black.
class OSG_SYSTEMLIB_DLLMAPPING GradientBackground : public Background {
    OSG_CONTAINER(GradientBackground, Background)

public:
    enum : UInt32 { ColorFieldId = Inherited::NextFieldId, PositionFieldId, NextFieldId = PositionFieldId + 2 };
    static constexpr BitVector ColorFieldMask = fieldMask(ColorFieldId);
    static constexpr BitVector PositionFieldMask = fieldMask(PositionFieldId);
    static constexpr BitVector LineFieldMask = ColorFieldMask | PositionFieldMask;

    void addLine(const Color3f& color, Real32 position);
    void clearLines() { lines.clear(); }

    void clear(DrawActionBase* action, Viewport* viewport) override;

protected:
    GradientBackground() = default;

private:
    struct ColorLine {
        Color3f color;
        Real32 position;
    };
    std::vector<ColorLine> lines;
};

} // namespace osg
