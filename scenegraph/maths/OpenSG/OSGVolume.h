#pragma once

#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGSystemDef.h>
#include <OpenSG/OSGVector.h>

namespace osg {

class Line;

/// A region of space with state flags. Which frame it is in depends on who holds it.
///
/// An empty volume keeps its last bounds: ask isEmpty() before using them.
class OSG_SYSTEMLIB_DLLMAPPING Volume {
public:
    enum State : UInt16 { ValidState = 1, EmptyState = 2, StaticState = 4, InfiniteState = 8, AlwaysVisibleState = 16 };

    virtual ~Volume();

    bool isValid() const { return (state & ValidState) != 0; }
    bool isEmpty() const { return (state & EmptyState) != 0; }
    bool isStatic() const { return (state & StaticState) != 0; }
    bool isInfinite() const { return (state & InfiniteState) != 0; }
    /// Whether there is something of the volume to be seen wherever one looks, as what is fixed to the screen. Its
    /// bounds do not tell; whatever it extends becomes always visible too, also when it is empty.
    bool isAlwaysVisible() const { return (state & AlwaysVisibleState) != 0; }
    /// Infinite, static or not valid: nothing extends such a volume.
    bool isUntouchable() const { return isInfinite() || isStatic() || !isValid(); }

    void setValid(bool value = true) { changeState(ValidState, value); }
    /// An empty volume is valid, not infinite and not always visible.
    void setEmpty(bool value = true);
    void setStatic(bool value = true) { changeState(StaticState, value); }
    /// An infinite volume is valid and not empty.
    void setInfinite(bool value = true);
    void setAlwaysVisible(bool value = true) { changeState(AlwaysVisibleState, value); }
    UInt16 getState() const { return state; }
    virtual void setState(UInt16 newState);

    /// The origin when empty.
    virtual void getCenter(Pnt3f& center) const = 0;
    /// 0 when empty.
    virtual Real32 getScalarVolume() const = 0;
    /// The bounds as they stand, whatever the state.
    virtual void getBounds(Pnt3f& minimum, Pnt3f& maximum) const = 0;
    Pnt3f getMin() const;
    Pnt3f getMax() const;

    virtual void extendBy(const Pnt3f& point) = 0;
    /// An empty or invalid argument changes nothing; an empty volume takes the argument's state; an
    /// infinite argument makes the volume infinite.
    virtual void extendBy(const Volume& volume) = 0;

    /// Whether the point is strictly inside.
    virtual bool intersect(const Pnt3f& point) const = 0;
    virtual bool intersect(const Line& line) const = 0;
    /// As Line::intersect() with a box.
    virtual bool intersect(const Line& line, Real32& enter, Real32& exit) const = 0;
    /// Whether the volumes' bounds overlap or touch.
    virtual bool intersect(const Volume& volume) const = 0;

    /// To the bounds of the transformed volume; an empty or infinite one stays as it is.
    virtual void transform(const Matrix& matrix) = 0;

protected:
    Volume() = default;
    Volume(const Volume&) = default;
    Volume& operator=(const Volume&) = default;

private:
    void changeState(UInt16 flag, bool value) { setState(static_cast<UInt16>(value ? state | flag : state & ~flag)); }

    UInt16 state = ValidState | EmptyState;
};

} // namespace osg
