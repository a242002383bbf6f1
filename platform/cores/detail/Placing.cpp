#include <platform/cores/detail/Placing.h>

#include <OpenSG/OSGCamera.h>
#include <OpenSG/OSGViewport.h>

#include <algorithm>
#include <cmath>

namespace osg {

bool getView(const DrawActionBase* action, View& view) {
    if (!action || !action->getCamera()) return false;
    const Viewport* const viewport = action->getViewport();
    // At least a pixel, without which cameras have no projection.
    const UInt32 width = viewport ? static_cast<UInt32>(std::max(1, viewport->getPixelWidth())) : 1;
    const UInt32 height = viewport ? static_cast<UInt32>(std::max(1, viewport->getPixelHeight())) : 1;
    action->getCamera()->getViewing(view.viewing, width, height);
    action->getCamera()->getProjection(view.projection, width, height);
    return true;
}

bool isFinite(const Pnt3f& point) {
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

bool isFinite(const Matrix& matrix) {
    return std::all_of(matrix.getValues(), matrix.getValues() + 16, [](Real32 value) { return std::isfinite(value); });
}

bool invertAffine(const Matrix& matrix, Matrix& result) {
    Vec3f axes[3];
    Real32 lengths[3];
    for (UInt32 i = 0; i < 3; ++i) {
        axes[i] = getColumn(matrix, i);
        lengths[i] = axes[i].length();
        axes[i] *= 1.0f / lengths[i];
    }
    const Real32 flattest = 1e-6f;
    const Real32 determinant = axes[0].dot(axes[1].cross(axes[2]));
    // Also false for NaN, as from an axis of length 0.
    if (!(std::fabs(determinant) > flattest)) return false;

    Matrix inverse;
    for (UInt32 i = 0; i < 3; ++i) {
        const Vec3f row = axes[(i + 1) % 3].cross(axes[(i + 2) % 3]) * (1.0f / determinant / lengths[i]);
        for (UInt32 column = 0; column < 3; ++column) inverse[column][i] = row[column];
        inverse[3][i] = -row.dot(getColumn(matrix, 3));
    }
    if (!isFinite(inverse)) return false;
    result = inverse;
    return true;
}

} // namespace osg
