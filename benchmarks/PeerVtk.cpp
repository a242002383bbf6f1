#include <benchmarks/PeerVtk.h>

#include <vtkCellArray.h>
#include <vtkCellLocator.h>
#include <vtkCompositeDataIterator.h>
#include <vtkCompositeDataSet.h>
#include <vtkCutter.h>
#include <vtkGenericCell.h>
#include <vtkMath.h>
#include <vtkPlane.h>
#include <vtkPlaneCutter.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkSMPTools.h>
#include <vtkSmartPointer.h>
#include <vtkStaticCellLocator.h>

#include <algorithm>
#include <cmath>

namespace tesk::benchmarks {

namespace {

template <class Class> using Pointer = vtkSmartPointer<Class>;

Pointer<vtkPolyData> convert(const test::Mesh& mesh) {
    vtkSMPTools::Initialize(1);
    const auto points = Pointer<vtkPoints>::New();
    points->SetDataTypeToFloat();
    for (const osg::Pnt3f& p : mesh.positions) points->InsertNextPoint(p[0], p[1], p[2]);
    const auto triangles = Pointer<vtkCellArray>::New();
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
        const vtkIdType corners[] = {mesh.indices[i], mesh.indices[i + 1], mesh.indices[i + 2]};
        triangles->InsertNextCell(3, corners);
    }
    const auto data = Pointer<vtkPolyData>::New();
    data->SetPoints(points);
    data->SetPolys(triangles);
    data->BuildCells();
    return data;
}

template <class Locator> class VtkPeer : public PointDistancePeer {
public:
    VtkPeer(const std::string& peerName, const test::Mesh& mesh) : name(peerName), data(convert(mesh)) {}

    std::string getName() const override { return name; }

    void build() override {
        locator = Pointer<Locator>::New();
        locator->SetDataSet(data);
        locator->CacheCellBoundsOn();
        locator->BuildLocator();
    }

    double findDistance(const osg::Pnt3f& point) override {
        const double query[] = {point[0], point[1], point[2]};
        double closest[3], squaredDistance = 0.0;
        vtkIdType triangle = 0;
        int part = 0;
        locator->FindClosestPoint(query, closest, cell, triangle, part, squaredDistance);
        return std::sqrt(squaredDistance);
    }

    void clear() override { locator = nullptr; }

private:
    std::string name;
    Pointer<vtkPolyData> data;
    Pointer<vtkGenericCell> cell = Pointer<vtkGenericCell>::New();
    Pointer<Locator> locator;
};

/// Calls visit(start, end) for all lines.
template <class Visitor> void forEachLine(vtkPolyData* data, Visitor visit) {
    vtkIdType count = 0;
    const vtkIdType* corners = nullptr;
    vtkCellArray* const lines = data->GetLines();
    for (lines->InitTraversal(); lines->GetNextCell(count, corners) != 0;) {
        for (vtkIdType i = 1; i < count; ++i) {
            double start[3], end[3];
            data->GetPoint(corners[i - 1], start);
            data->GetPoint(corners[i], end);
            visit(start, end);
        }
    }
}

double lengthOf(const double start[3], const double end[3]) {
    return std::sqrt(vtkMath::Distance2BetweenPoints(start, end));
}

class VtkSlicePeer : public SlicePeer {
public:
    explicit VtkSlicePeer(const test::Mesh& mesh) : data(convert(mesh)) {}

    std::string getName() const override { return "vtk"; }
    void build() override {}

    std::vector<double> findOutlineLengths(const osg::Vec3f& normal, const std::vector<float>& offsets) override {
        const auto plane = Pointer<vtkPlane>::New();
        plane->SetNormal(normal[0], normal[1], normal[2]);
        const auto cutter = Pointer<vtkCutter>::New();
        cutter->SetInputData(data);
        cutter->SetCutFunction(plane);
        for (std::size_t i = 0; i < offsets.size(); ++i) cutter->SetValue(static_cast<int>(i), -offsets[i]);
        cutter->Update();
        std::vector<double> lengths(offsets.size());
        forEachLine(cutter->GetOutput(), [&](double* start, double* end) {
            lengths[findPlane(offsets, plane->EvaluateFunction(start))] += lengthOf(start, end);
        });
        return lengths;
    }

    void clear() override {}

private:
    /// The number of the plane that is nearest a height.
    static std::size_t findPlane(const std::vector<float>& offsets, double height) {
        const auto above =
            std::partition_point(offsets.begin(), offsets.end(), [&](float offset) { return -offset <= height; });
        if (above == offsets.begin()) return 0;
        const auto below = above - 1;
        const bool isNearerAbove = above != offsets.end() && -*above - height < height + *below;
        return static_cast<std::size_t>((isNearerAbove ? above : below) - offsets.begin());
    }

    Pointer<vtkPolyData> data;
};

class VtkPlaneSlicePeer : public SlicePeer {
public:
    explicit VtkPlaneSlicePeer(const test::Mesh& mesh) : data(convert(mesh)) {}

    std::string getName() const override { return "vtk_plane"; }

    /// The tree comes with the first plane.
    void build() override {
        cutter = Pointer<vtkPlaneCutter>::New();
        cutter->SetInputData(data);
        cutter->InterpolateAttributesOff();
    }

    std::vector<double> findOutlineLengths(const osg::Vec3f& normal, const std::vector<float>& offsets) override {
        std::vector<double> lengths;
        for (const float offset : offsets) {
            const auto plane = Pointer<vtkPlane>::New();
            plane->SetNormal(normal[0], normal[1], normal[2]);
            plane->SetOrigin(-offset * normal[0], -offset * normal[1], -offset * normal[2]);
            cutter->SetPlane(plane);
            cutter->Update();
            lengths.push_back(lengthOf(cutter->GetOutputDataObject(0)));
        }
        return lengths;
    }

    void clear() override { cutter = nullptr; }

private:
    static double lengthOf(vtkDataObject* output) {
        double length = 0.0;
        Pointer<vtkCompositeDataIterator> part;
        part.TakeReference(vtkCompositeDataSet::SafeDownCast(output)->NewIterator());
        for (part->InitTraversal(); !part->IsDoneWithTraversal(); part->GoToNextItem()) {
            forEachLine(vtkPolyData::SafeDownCast(part->GetCurrentDataObject()),
                        [&](double* start, double* end) { length += benchmarks::lengthOf(start, end); });
        }
        return length;
    }

    Pointer<vtkPolyData> data;
    Pointer<vtkPlaneCutter> cutter;
};

} // namespace

std::unique_ptr<PointDistancePeer> createVtkPeer(const test::Mesh& mesh) {
    return std::make_unique<VtkPeer<vtkCellLocator>>("vtk", mesh);
}

std::unique_ptr<PointDistancePeer> createVtkStaticPeer(const test::Mesh& mesh) {
    return std::make_unique<VtkPeer<vtkStaticCellLocator>>("vtk_static", mesh);
}

std::unique_ptr<SlicePeer> createVtkSlicePeer(const test::Mesh& mesh) { return std::make_unique<VtkSlicePeer>(mesh); }

std::unique_ptr<SlicePeer> createVtkPlaneSlicePeer(const test::Mesh& mesh) {
    return std::make_unique<VtkPlaneSlicePeer>(mesh);
}

} // namespace tesk::benchmarks
