#pragma once

#include <OpenSG/OSGDrawActionBase.h>

#include <memory>

namespace osg {

class Geometry;
class DirectionalLight;

/// Draws a scene with OpenGL 2.1, for a viewport: window->render(action), or viewport->render(action).
///
/// The background clears the viewport, the traversal collects the geometries that the camera sees, and its end draws
/// them by ascending sort key of their materials, within a key the opaque ones first, then the transparent ones from
/// back to front by the centres of their nodes' volumes, without writing depth. Materials with
/// Material::NoStateSorting come before everything, in the order of the traversal. A geometry without material has the
/// default material. The lights of the nodes that were entered shine on everything, or only on the subtrees of their
/// nodes when lights are local; of more than eight the first count.
///
/// Geometry and image data lie in buffers and textures of the OpenGL context that is current, kept from one drawing to
/// the next: an edit's end of a geometry or of a property refills the buffers, whatever does not change costs one
/// comparison, and what belongs to a destroyed geometry or image is freed at the end of the next drawing. Any content
/// of a geometry is safe to draw: a primitive that lacks positions or has infinite ones is left out, elements missing
/// in the other properties are 0.
///
/// One action draws into one context, or into contexts that share their objects. Delete it while such a context is
/// current; with no context current at all its OpenGL objects stay until their context ends. After the loss of a
/// context, draw into the next one with a new action.
class OSG_SYSTEMLIB_DLLMAPPING RenderAction : public DrawActionBase {
public:
    static RenderAction* create();
    ~RenderAction() override;

    /// What to do on entering and leaving nodes with cores of exactly this type.
    static void registerEnterDefault(const FieldContainerType& type, const Functor& functor);
    static void registerLeaveDefault(const FieldContainerType& type, const Functor& functor);

    /// Multiplies a matrix on the right to what places the nodes from here on.
    void push_matrix(const Matrix& matrix);
    void pop_matrix();
    /// From the frame of what is entered now to the world's.
    const Matrix& top_matrix() const;

    /// Tests the volume of the current node against what the camera sees, before the node's own matrix is pushed. False
    /// when nothing of it is to be seen. popVisibility() belongs to each call, whatever its result.
    bool pushVisibility();
    void popVisibility();
    /// A node with an empty, infinite, invalid or always visible volume is always visible.
    bool isVisible(Node* node) override;

    /// Whether transparent geometries of a key are drawn from back to front, or else as traversed.
    bool getSortTrans() const { return sortTrans; }
    void setSortTrans(bool sort) { sortTrans = sort; }
    /// Whether transparent geometries write depth.
    bool getZWriteTrans() const { return zWriteTrans; }
    void setZWriteTrans(bool write) { zWriteTrans = write; }

    /// Whether a light shines on the subtree of its node alone.
    bool getLocalLights() const { return localLights; }
    void setLocalLights(bool local) { localLights = local; }

    /// Adds the geometry to what will be drawn, as part of the current node.
    void dropGeometry(Geometry* geometry);
    /// Lights what is dropped from here on, up to undropLight().
    void dropLight(DirectionalLight* light);
    void undropLight(DirectionalLight* light);

protected:
    RenderAction();

    const FunctorTable& getFunctors() const override;
    ResultE start() override;
    ResultE stop(ResultE result) override;

private:
    struct Drawing;

    static FunctorTable& getDefaultFunctors();
    /// Takes the planes out of the set that the whole volume of the node is inside of.
    bool isVisible(Node* node, UInt8& planesToTest) const;

    std::unique_ptr<Drawing> drawing;
    bool sortTrans = true;
    bool zWriteTrans = false;
    bool localLights = false;
};

} // namespace osg
