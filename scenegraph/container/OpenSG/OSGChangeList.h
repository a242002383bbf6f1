#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

#include <utility>
#include <vector>

namespace osg {

/// Log of the changes made on one thread.
///
/// Read-only by default, in which case nothing is stored; the host arranges for recording before osgInit().
class OSG_SYSTEMLIB_DLLMAPPING ChangeList {
public:
    typedef std::pair<UInt32, BitVector> ChangedEntry;
    typedef std::vector<ChangedEntry> ChangedStore;
    typedef std::vector<UInt32> IdStore;
    typedef ChangedStore::const_iterator changed_const_iterator;
    typedef IdStore::const_iterator idrefd_const_iterator;

    /// Whether lists made by the next osgInit() record.
    static void setReadWriteDefault(bool readWrite = true);
    void setReadOnly(bool readOnly);

    void addChanged(const FieldContainerPtrBase& container, BitVector mask);
    void addAddRefd(const FieldContainerPtrBase& container);
    void addSubRefd(const FieldContainerPtrBase& container);
    void addCreated(UInt32 id);
    void addDestroyed(UInt32 id);

    UInt32 sizeChanged() const { return static_cast<UInt32>(changedEntries.size()); }
    changed_const_iterator beginChanged() const { return changedEntries.begin(); }
    changed_const_iterator endChanged() const { return changedEntries.end(); }
    UInt32 sizeAddRefd() const { return static_cast<UInt32>(addRefdIds.size()); }
    idrefd_const_iterator beginAddRefd() const { return addRefdIds.begin(); }
    idrefd_const_iterator endAddRefd() const { return addRefdIds.end(); }
    UInt32 sizeSubRefd() const { return static_cast<UInt32>(subRefdIds.size()); }
    idrefd_const_iterator beginSubRefd() const { return subRefdIds.begin(); }
    idrefd_const_iterator endSubRefd() const { return subRefdIds.end(); }
    UInt32 sizeCreated() const { return static_cast<UInt32>(createdIds.size()); }
    idrefd_const_iterator beginCreated() const { return createdIds.begin(); }
    idrefd_const_iterator endCreated() const { return createdIds.end(); }
    UInt32 sizeDestroyed() const { return static_cast<UInt32>(destroyedIds.size()); }
    idrefd_const_iterator beginDestroyed() const { return destroyedIds.begin(); }
    idrefd_const_iterator endDestroyed() const { return destroyedIds.end(); }

    bool empty() const;
    void clearAll();

private:
    bool recording = false;
    ChangedStore changedEntries;
    IdStore addRefdIds;
    IdStore subRefdIds;
    IdStore createdIds;
    IdStore destroyedIds;
};

} // namespace osg
