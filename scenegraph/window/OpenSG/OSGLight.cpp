#include <OpenSG/OSGDirectionalLight.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_DEF(Light)
OSG_CONTAINER_DEF(DirectionalLight)

} // namespace osg
