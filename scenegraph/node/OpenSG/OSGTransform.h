#pragma once

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGMatrix.h>

namespace osg {

class Transform;
typedef FCPtr<GroupPtr, Transform> TransformPtr;
typedef RefPtr<TransformPtr> TransformRefPtr;
typedef SField<Matrix> SFMatrix;

/// Places its subtree by a matrix.
class OSG_SYSTEMLIB_DLLMAPPING Transform : public Group {
    OSG_CONTAINER(Transform, Group)

public:
    enum : UInt32 { MatrixFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector MatrixFieldMask = fieldMask(MatrixFieldId);

    SFMatrix* getSFMatrix() { return &matrix; }
    Matrix& getMatrix() { return matrix.getValue(); }
    const Matrix& getMatrix() const { return matrix.getValue(); }
    void setMatrix(const Matrix& value) { matrix.setValue(value); }

    void changed(BitVector whichField, UInt32 origin) override;

protected:
    Transform() = default;

    void accumulateMatrix(Matrix& result) override;
    void adjustVolume(Volume& volume) override;

private:
    SFMatrix matrix;
};

} // namespace osg
