#pragma once

#include <OpenSG/OSGFieldContainer.h>

#include <iterator>
#include <unordered_map>

namespace osg {

/// What drawing keeps by field container from one picture to the next.
template <class Entry> class ObjectCache {
public:
    ObjectCache() = default;
    ObjectCache(const ObjectCache&) = delete;
    ObjectCache& operator=(const ObjectCache&) = delete;

    /// The container's entry, a new one when it has none.
    Entry& find(const FieldContainerPtr& container) {
        Slot& slot = slots[container.getFieldContainerId()];
        slot.usedIn = picture;
        return slot.entry;
    }

    /// To be called after each picture: drops the entries of containers that have been destroyed.
    void dropDead() {
        for (auto slot = slots.begin(); slot != slots.end();) {
            // What has just been drawn exists.
            const bool alive =
                slot->second.usedIn == picture || FieldContainerFactory::the()->getContainer(slot->first) != NullFC;
            slot = alive ? std::next(slot) : slots.erase(slot);
        }
        ++picture;
    }

private:
    struct Slot {
        Entry entry;
        UInt32 usedIn = 0;
    };

    std::unordered_map<UInt32, Slot> slots;
    UInt32 picture = 1;
};

} // namespace osg
