#include <OpenSG/detail/Lights.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/detail/OpenGL.h>

#include <algorithm>

namespace osg {

namespace {

/// Every OpenGL offers eight.
constexpr GLenum endOfLights = GL_LIGHT0 + 8;

} // namespace

void Lights::clear() {
    sets.clear();
    currentSet = noLights;
}

void Lights::push(const DirectionalLight* light, const Matrix& placement) {
    sets.push_back({light, placement, currentSet});
    currentSet = static_cast<UInt32>(sets.size());
}

void Lights::pop() {
    if (currentSet != noLights) currentSet = sets[currentSet - 1].outer;
}

void Lights::apply(UInt32 number, const Matrix& worldToCamera) const {
    GLenum name = GL_LIGHT0;
    for (const Set* set : getShining(number))
        if (name < endOfLights) applyLight(name++, *set, worldToCamera);
    while (name < endOfLights) glDisable(name++);
}

std::vector<const Lights::Set*> Lights::getShining(UInt32 number) const {
    std::vector<const Set*> shining;
    if (number == allLights)
        for (const Set& set : sets) shining.push_back(&set);
    else
        for (; number != noLights; number = sets[number - 1].outer) shining.insert(shining.begin(), &sets[number - 1]);
    const auto isOff = [](const Set* set) { return !set->light->getOn(); };
    shining.erase(std::remove_if(shining.begin(), shining.end(), isOff), shining.end());
    return shining;
}

void Lights::applyLight(GLenum name, const Set& set, const Matrix& worldToCamera) {
    const DirectionalLight& light = *set.light;
    Matrix toCamera = worldToCamera;
    toCamera.mult(light.getBeacon() == NullFC ? set.placement : light.getBeacon()->getToWorld());
    glLoadMatrixf(toCamera.getValues());
    const Vec3f& direction = light.getDirection();
    const GLfloat position[] = {direction[0], direction[1], direction[2], 0.0f};
    glLightfv(name, GL_POSITION, position);
    glLightfv(name, GL_AMBIENT, light.getAmbient().getValuesRGBA());
    glLightfv(name, GL_DIFFUSE, light.getDiffuse().getValuesRGBA());
    glLightfv(name, GL_SPECULAR, light.getSpecular().getValuesRGBA());
    glEnable(name);
}

} // namespace osg
