#pragma once

#include <OpenSG/OSGVolume.h>

namespace osg {

/// A box along the axes. The default one is valid, empty and at the origin; giving it bounds makes
/// it non-empty, even when they enclose nothing.
class OSG_SYSTEMLIB_DLLMAPPING BoxVolume : public Volume {
public:
    BoxVolume() = default;
    BoxVolume(Real32 minX, Real32 minY, Real32 minZ, Real32 maxX, Real32 maxY, Real32 maxZ) {
        setBounds(minX, minY, minZ, maxX, maxY, maxZ);
    }
    BoxVolume(const Pnt3f& newMinimum, const Pnt3f& newMaximum) { setBounds(newMinimum, newMaximum); }

    const Pnt3f& getMin() const { return minimum; }
    const Pnt3f& getMax() const { return maximum; }
    void getBounds(Pnt3f& currentMinimum, Pnt3f& currentMaximum) const override {
        currentMinimum = minimum;
        currentMaximum = maximum;
    }
    void getSize(Vec3f& size) const { size = maximum - minimum; }
    void getCenter(Pnt3f& center) const override;
    Real32 getScalarVolume() const override;

    /// Centred at the origin.
    void setBounds(Real32 width, Real32 height, Real32 depth);
    void setBounds(Real32 minX, Real32 minY, Real32 minZ, Real32 maxX, Real32 maxY, Real32 maxZ);
    void setBounds(const Pnt3f& newMinimum, const Pnt3f& newMaximum);
    void setBoundsByCenterAndSize(const Pnt3f& center, const Vec3f& size);

    void extendBy(const Pnt3f& point) override;
    void extendBy(const Volume& volume) override;

    bool intersect(const Pnt3f& point) const override;
    bool intersect(const Line& line) const override;
    bool intersect(const Line& line, Real32& enter, Real32& exit) const override;
    bool intersect(const Volume& volume) const override;

    /// Method: each axis sums the smaller and the larger products (Arvo, Transforming Axis-Aligned
    /// Bounding Boxes, Graphics Gems, 1990).
    void transform(const Matrix& matrix) override;

private:
    Pnt3f minimum;
    Pnt3f maximum;
};

} // namespace osg
