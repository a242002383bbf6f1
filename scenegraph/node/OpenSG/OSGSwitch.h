#pragma once

#include <OpenSG/OSGGroup.h>

namespace osg {

class Switch;
typedef FCPtr<GroupPtr, Switch> SwitchPtr;
typedef RefPtr<SwitchPtr> SwitchRefPtr;

/// Chooses one child, all or none of them for drawing and picking; its volume is that of all children.
class OSG_SYSTEMLIB_DLLMAPPING Switch : public Group {
    OSG_CONTAINER(Switch, Group)

public:
    enum : UInt32 { ChoiceFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector ChoiceFieldMask = fieldMask(ChoiceFieldId);
    static constexpr Int32 ALL = -2;
    static constexpr Int32 NONE = -1;

    SFInt32* getSFChoice() { return &choice; }
    Int32& getChoice() { return choice.getValue(); }
    const Int32& getChoice() const { return choice.getValue(); }
    void setChoice(const Int32& value) { choice.setValue(value); }

protected:
    Switch() = default;

private:
    SFInt32 choice{NONE};
};

} // namespace osg
