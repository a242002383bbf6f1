#pragma once

#include <OpenSG/OSGAttachmentContainer.h>

#include <string>
#include <unordered_set>

namespace osg {

/// Which live containers carry a name: the embedded scene graph's own service, absent from OpenSG.
///
/// It follows every setName(), every attaching and detaching of a Name with binding 0, and every destruction at once.
/// A text written straight into the Name's field is seen when its edit ends.
class OSG_SYSTEMLIB_DLLMAPPING NameIndex {
public:
    typedef std::unordered_set<AttachmentContainer*> Containers;

    /// The containers of that name, in no order; constant time on average.
    static const Containers& find(const std::string& name);
};

} // namespace osg
