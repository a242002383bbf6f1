#pragma once

#include <OpenSG/OSGChangeList.h>

namespace osg {

/// The one thread that owns the scene graph.
class OSG_SYSTEMLIB_DLLMAPPING PThreadBase {
public:
    static PThreadBase* getCurrent();
    static ChangeList* getCurrentChangeList();
    static UInt32 getAspect() { return 0; }
    ChangeList* getChangeList() { return getCurrentChangeList(); }
};

typedef PThreadBase ThreadBase;

class Thread : public ThreadBase {};

} // namespace osg
