#pragma once

#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGGL.h>
#include <OpenSG/OSGMatrix.h>

#include <limits>
#include <vector>

namespace osg {

/// The lights of a traversal, and which of them shine on what.
class Lights {
public:
    /// The numbers of the set without lights and of the one with all that were pushed.
    static constexpr UInt32 noLights = 0;
    static constexpr UInt32 allLights = std::numeric_limits<UInt32>::max();

    void clear();
    /// From here on the light belongs to the current set, up to the pop. The placement is that of a light without
    /// beacon.
    void push(const DirectionalLight* light, const Matrix& placement);
    /// Nothing when nothing was pushed.
    void pop();
    UInt32 getCurrentSet() const { return currentSet; }

    /// Switches OpenGL's lights to those of the set; of too many those pushed first. Leaves the modelview matrix
    /// changed.
    void apply(UInt32 set, const Matrix& worldToCamera) const;

private:
    /// Adds one light to another set.
    struct Set {
        const DirectionalLight* light;
        Matrix placement;
        UInt32 outer;
    };

    std::vector<const Set*> getShining(UInt32 number) const;
    static void applyLight(GLenum name, const Set& set, const Matrix& worldToCamera);

    /// Set number n is at n - 1.
    std::vector<Set> sets;
    UInt32 currentSet = noLights;
};

} // namespace osg
