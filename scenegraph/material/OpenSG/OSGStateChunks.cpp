#include <OpenSG/OSGBlendChunk.h>
#include <OpenSG/OSGDepthChunk.h>
#include <OpenSG/OSGLineChunk.h>
#include <OpenSG/OSGMaterialChunk.h>
#include <OpenSG/OSGPointChunk.h>
#include <OpenSG/OSGPolygonChunk.h>

namespace osg {

OSG_CONTAINER_DEF(BlendChunk)
OSG_CONTAINER_DEF(DepthChunk)
OSG_CONTAINER_DEF(LineChunk)
OSG_CONTAINER_DEF(MaterialChunk)
OSG_CONTAINER_DEF(PointChunk)
OSG_CONTAINER_DEF(PolygonChunk)

} // namespace osg
