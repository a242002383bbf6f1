#pragma once

#include <OpenSG/OSGBaseTypes.h>
#include <OpenSG/OSGSystemDef.h>

#include <vector>

namespace osg {

/// How text is laid out.
class OSG_SYSTEMLIB_DLLMAPPING TextLayoutParam {
public:
    /// FIRST is BEGIN along a line; across the lines it leaves the first base line at 0.
    enum Alignment { ALIGN_FIRST, ALIGN_BEGIN, ALIGN_MIDDLE, ALIGN_END };

    /// Text runs horizontally, from left to right and from top to bottom, whatever these say.
    bool horizontal = true;
    bool leftToRight = true;
    bool topToBottom = true;
    /// Where a line lies along x.
    Alignment majorAlignment = ALIGN_FIRST;
    /// Where the block of lines lies along y.
    Alignment minorAlignment = ALIGN_FIRST;
    /// From one base line to the next, in line heights.
    Real32 spacing = 1.0f;
    /// The width that each line is brought to; 0, or no entry: its own width.
    std::vector<Real32> length;
    /// Has no effect.
    Real32 maxExtend = 0.0f;

    /// The width of the first line, and of it alone.
    void setLength(Real32 width) { length.assign(1, width); }
    Real32 getLength(UInt32 line = 0) const { return line < length.size() ? length[line] : 0.0f; }
};

} // namespace osg
