#pragma once

#include <cstddef>

/// What is measured: each function adds the rows of one work.
namespace tesk::benchmarks {

constexpr std::size_t triangleCounts[] = {10'000, 100'000, 1'000'000};

void addDistanceQueries();
void addTreeBuilding();
void addTreeSearch();
void addObjectObject();
void addPointObject();
void addSlicing();
void addGap();
void addLineObject();
void addFiles();
void addVisualisation();

} // namespace tesk::benchmarks
