#pragma once

#include <support/Random.h>
#include <support/Scenes.h>

namespace tesk::test {

/// How many cases a test compares: as many as given, times the environment's TESK_DIFFERENTIAL_FACTOR when it is set.
int differentialRuns(int usual);

/// A mesh that searches find hard: none or few or some hundred triangles, ordinary surfaces and triangles of all kinds,
/// on a lattice where distances tie, doubled, segments as triangles, far off, very large or small, not finite.
Mesh hostileMesh(Random& random);

/// A geometry of any primitives over any indices, most of them good, of any width, with lengths and indices that may
/// lead astray.
SceneNode hostileGeometry(Random& random);

} // namespace tesk::test
