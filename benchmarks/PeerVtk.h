#pragma once

#include <benchmarks/Peers.h>

namespace tesk::benchmarks {

/// VTK's uniform grid of cells, vtkCellLocator; one thread.
std::unique_ptr<PointDistancePeer> createVtkPeer(const test::Mesh& mesh);
/// vtkStaticCellLocator, the one for data that does not change.
std::unique_ptr<PointDistancePeer> createVtkStaticPeer(const test::Mesh& mesh);
/// vtkCutter, which cuts with all planes in one pass.
std::unique_ptr<SlicePeer> createVtkSlicePeer(const test::Mesh& mesh);
/// vtkPlaneCutter, which has a tree of spheres.
std::unique_ptr<SlicePeer> createVtkPlaneSlicePeer(const test::Mesh& mesh);

} // namespace tesk::benchmarks
