#pragma once

#include <OpenSG/OSGCamera.h>

namespace osg {

class MatrixCamera;
typedef FCPtr<CameraPtr, MatrixCamera> MatrixCameraPtr;
typedef RefPtr<MatrixCameraPtr> MatrixCameraRefPtr;

/// A camera given by its two matrices, whatever the viewport; it needs neither beacon nor planes.
class OSG_SYSTEMLIB_DLLMAPPING MatrixCamera : public Camera {
    OSG_CONTAINER(MatrixCamera, Camera)

public:
    enum : UInt32 { ProjectionMatrixFieldId = Inherited::NextFieldId, ModelviewMatrixFieldId, NextFieldId };
    static constexpr BitVector ProjectionMatrixFieldMask = fieldMask(ProjectionMatrixFieldId);
    static constexpr BitVector ModelviewMatrixFieldMask = fieldMask(ModelviewMatrixFieldId);

    const Matrix& getProjectionMatrix() const { return projectionMatrix; }
    void setProjectionMatrix(const Matrix& value) { projectionMatrix = value; }
    /// From world to camera coordinates.
    const Matrix& getModelviewMatrix() const { return modelviewMatrix; }
    void setModelviewMatrix(const Matrix& value) { modelviewMatrix = value; }

    void getProjection(Matrix& result, UInt32 width, UInt32 height) override;
    void getViewing(Matrix& result, UInt32 width, UInt32 height) override;

protected:
    MatrixCamera() = default;

private:
    Matrix projectionMatrix;
    Matrix modelviewMatrix;
};

} // namespace osg
