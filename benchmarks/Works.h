#pragma once

#include <cstddef>

/// What is measured: each function adds the rows of one work.
namespace tesk::benchmarks {

constexpr std::size_t triangleCounts[] = {10'000, 100'000, 1'000'000};

void addDistanceQueries();
void addTreeBuilding();
/// Of pairs that fit closely, none above `closePairLimit` triangles is measured.
void addTreeSearch(std::size_t closePairLimit);
/// As for addTreeSearch().
void addObjectObject(std::size_t closePairLimit);
void addPointObject();
void addSlicing();
/// As for addTreeSearch().
void addGap(std::size_t closePairLimit);
void addLineObject();
void addFiles();
void addVisualisation();

} // namespace tesk::benchmarks
