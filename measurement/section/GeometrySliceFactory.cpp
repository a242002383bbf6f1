#include <measurement/section/GeometrySliceFactory.h>

#include <measurement/section/detail/ParallelSlices.h>

namespace tesk::measurement {

void GeometrySliceFactory::createSlice(const osg::NodePtr& node, const osg::Vec4f& cuttingPlane,
                                       std::list<Segment>& outline) {
    plane = cuttingPlane;
    segments = &outline;
    segments->clear();
    createSliceRec(node);
}

void GeometrySliceFactory::createSliceRec(const osg::NodePtr& node) {
    detail::ParallelSlices(node, osg::Vec3f(plane[0], plane[1], plane[2]))
        .forEachOutline({plane[3]}, [this](const std::vector<Segment>& outline) {
            segments->assign(outline.begin(), outline.end());
        });
}

void GeometrySliceFactory::createSlices(const osg::NodePtr& node, const osg::Vec3f& normal,
                                        const std::vector<float>& offsets, const OutlineVisitor& visit) {
    detail::ParallelSlices(node, normal).forEachOutline(offsets, visit);
}

} // namespace tesk::measurement
