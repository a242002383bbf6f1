#include <OpenSG/OSGMaterialDrawable.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_DEF(Drawable)
OSG_ABSTRACT_CONTAINER_DEF(MaterialDrawable)

} // namespace osg
