#include <measurement/scene/ChildEnumerator.h>

#include <OpenSG/OSGDistanceLOD.h>
#include <OpenSG/OSGSwitch.h>

namespace tesk::measurement {

ChildEnumerator::ChildEnumerator(const osg::NodePtr& parent) : node(parent) {
    if (node == osg::NullFC) return;
    const auto childCount = static_cast<osg::Int32>(node->getMFChildren()->size());
    const osg::NodeCorePtr core = node->getCore();
    const osg::SwitchPtr switchCore = osg::SwitchPtr::dcast(core);
    if (switchCore != osg::NullFC) {
        selectChoice(switchCore->getChoice(), childCount);
    } else if (osg::DistanceLODPtr::dcast(core) != osg::NullFC) {
        const bool hasFirst = childCount > 0 && (*node->getMFChildren())[0] != osg::NullFC;
        last = hasFirst ? 0 : -1;
    } else {
        last = childCount - 1;
    }
}

void ChildEnumerator::selectChoice(osg::Int32 choice, osg::Int32 childCount) {
    if (choice == osg::Switch::ALL) {
        last = childCount - 1;
    } else if (choice == osg::Switch::NONE) {
        last = -1;
    } else if (choice >= 0 && choice < childCount) {
        current = last = choice;
    } else {
        // Deliberate: a choice out of range is measured as if the first child were chosen.
        last = childCount > 0 ? 0 : -1;
    }
}

osg::NodePtr ChildEnumerator::next() { return (*node->getMFChildren())[static_cast<osg::UInt32>(current++)]; }

} // namespace tesk::measurement
