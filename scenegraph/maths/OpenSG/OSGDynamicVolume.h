#pragma once

#include <OpenSG/OSGBoxVolume.h>

namespace osg {

/// What a node holds: a box behind the interface of every volume.
class OSG_SYSTEMLIB_DLLMAPPING DynamicVolume : public Volume {
public:
    /// The box itself. After changing it, call instanceChanged().
    Volume& getInstance() { return instance; }
    const Volume& getInstance() const { return instance; }
    /// Takes the box's state, which otherwise stays as it was.
    void instanceChanged() { Volume::setState(instance.getState()); }

    void setState(UInt16 newState) override;

    void getCenter(Pnt3f& center) const override { instance.getCenter(center); }
    Real32 getScalarVolume() const override { return instance.getScalarVolume(); }
    void getBounds(Pnt3f& minimum, Pnt3f& maximum) const override { instance.getBounds(minimum, maximum); }

    void extendBy(const Pnt3f& point) override;
    void extendBy(const Volume& volume) override;

    bool intersect(const Pnt3f& point) const override { return instance.intersect(point); }
    bool intersect(const Line& line) const override { return instance.intersect(line); }
    bool intersect(const Line& line, Real32& enter, Real32& exit) const override {
        return instance.intersect(line, enter, exit);
    }
    bool intersect(const Volume& volume) const override { return instance.intersect(volume); }

    void transform(const Matrix& matrix) override { instance.transform(matrix); }

private:
    BoxVolume instance;
};

} // namespace osg
