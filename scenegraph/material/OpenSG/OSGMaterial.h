#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGState.h>

namespace osg {

class Material;
typedef FCPtr<AttachmentContainerPtr, Material> MaterialPtr;
typedef RefPtr<MaterialPtr> MaterialRefPtr;

/// How drawables look; they share materials freely. The end of an edit rebuilds the state, whatever changed.
class OSG_SYSTEMLIB_DLLMAPPING Material : public AttachmentContainer {
    OSG_ABSTRACT_CONTAINER(Material, AttachmentContainer)

public:
    enum : UInt32 { SortKeyFieldId = Inherited::NextFieldId, TransparencyModeFieldId, NextFieldId };

    /// The sort key of what is drawn before everything else, in the order of the scene.
    static constexpr Int32 NoStateSorting = 0x7fffffff;

    static constexpr Int32 TransparencyAutoDetection = 0;
    static constexpr Int32 TransparencyForceTransparent = 1;
    static constexpr Int32 TransparencyForceOpaque = 2;

    /// Materials are drawn by ascending key.
    OSG_FIELD(Int32, SortKey, sortKey, 0);
    OSG_FIELD(Int32, TransparencyMode, transparencyMode, TransparencyAutoDetection);

    /// Whether what has the material is drawn after opaque things, from back to front.
    virtual bool isTransparent() const = 0;

    /// What to draw with; null before the first end of an edit.
    const StatePtr& getState() const { return state; }
    virtual void rebuildState() = 0;

    void changed(BitVector whichField, UInt32 origin) override;

protected:
    Material() = default;
    ~Material() override;

    /// The state without chunks, made when there is none yet; null when no container can be created.
    const StatePtr& clearState();

private:
    StatePtr state;
};

inline const MaterialPtr NullMaterial;

} // namespace osg
