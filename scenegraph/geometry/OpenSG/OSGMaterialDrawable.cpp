#include <OpenSG/OSGMaterialDrawable.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_DEF(Drawable)
OSG_ABSTRACT_CONTAINER_DEF(MaterialDrawable)

MaterialDrawable::~MaterialDrawable() { subRefCP(material); }

void MaterialDrawable::setMaterial(const MaterialPtr& value) { setRefdCP(material, value); }

} // namespace osg
