#pragma once

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace tesk::benchmarks {

/// How times grow with the number of triangles: the exponent e of the power of n that they follow between two sizes,
/// log(time2 / time1) / log(n2 / n1).
class Growth {
public:
    /// Notes the times of a row `WORK/OBJECTS/TRIANGLES` or `WORK/OBJECTS/TRIANGLES/REST`; passes over others.
    void add(const std::string& row, double ours, double fastestPeer);
    /// A line for every work of which there are two sizes or more; nothing without any.
    void write(std::ostream& output) const;

private:
    struct Work {
        std::string name;
        std::map<std::size_t, double> ours;
        std::map<std::size_t, double> fastestPeer;
    };

    Work& getWork(const std::string& name);

    std::vector<Work> works;
};

} // namespace tesk::benchmarks
