#include <OpenSG/OSGLineIterator.h>

namespace osg {

bool LineIterator::findInPrimitive() {
    const UInt32 type = getType();
    if (type != GL_LINES && type != GL_LINE_STRIP && type != GL_LINE_LOOP) return false;
    const UInt32 step = type == GL_LINES ? 2 : 1;
    // Separate lines may read beyond the primitive's own vertices, strips and loops may not.
    const UInt32 beyond = type == GL_LINES ? 0 : 1;
    while (nextCorner + beyond < usableLength) {
        const UInt32 first = nextCorner;
        nextCorner += step;
        if (accept({first, first + 1})) return true;
    }
    if (type != GL_LINE_LOOP || nextCorner >= usableLength) return false;
    return accept({nextCorner++, 0});
}

} // namespace osg
