#include <benchmarks/Growth.h>

#include <benchmarks/Works.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace tesk::benchmarks {

namespace {

constexpr int nameWidth = 46, columnWidth = 9;

std::vector<std::string> split(const std::string& row) {
    std::vector<std::string> parts;
    std::istringstream stream(row);
    for (std::string part; std::getline(stream, part, '/');) parts.push_back(part);
    return parts;
}

/// Between each number of triangles and the next; a dash where a time is missing.
std::string exponents(const std::map<std::size_t, double>& times) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(2);
    for (std::size_t i = 1; i < std::size(triangleCounts); ++i) {
        const auto before = times.find(triangleCounts[i - 1]), after = times.find(triangleCounts[i]);
        text << std::setw(columnWidth);
        if (before == times.end() || after == times.end()) {
            text << "-";
        } else {
            const auto growth = static_cast<double>(after->first) / static_cast<double>(before->first);
            text << std::log(after->second / before->second) / std::log(growth);
        }
    }
    return text.str();
}

} // namespace

void Growth::add(const std::string& row, double ours, double fastestPeer) {
    const std::vector<std::string> parts = split(row);
    const auto isCount = [&](std::size_t count) { return parts.size() > 2 && parts[2] == std::to_string(count); };
    const auto count = std::find_if(std::begin(triangleCounts), std::end(triangleCounts), isCount);
    if (count == std::end(triangleCounts)) return;
    std::string name = parts[0] + "/" + parts[1];
    for (std::size_t i = 3; i < parts.size(); ++i) name += "/" + parts[i];
    Work& work = getWork(name);
    work.ours[*count] = ours;
    if (fastestPeer > 0.0) work.fastestPeer[*count] = fastestPeer;
}

Growth::Work& Growth::getWork(const std::string& name) {
    const auto known = std::find_if(works.begin(), works.end(), [&](const Work& work) { return work.name == name; });
    if (known != works.end()) return *known;
    works.push_back({name, {}, {}});
    return works.back();
}

void Growth::write(std::ostream& output) const {
    const auto hasGrowth = [](const Work& work) { return work.ours.size() > 1; };
    if (std::none_of(works.begin(), works.end(), hasGrowth)) return;
    output << "\nTime grows as triangles to the power of ..., from 10,000 to 100,000 and from there to 1,000,000"
              " (n log n: 1.10, 1.08)\n\n"
           << std::setw(nameWidth) << "" << std::setw(2 * columnWidth) << "ours" << std::setw(2 * columnWidth)
           << "fastest peer"
           << "\n";
    for (const Work& work : works)
        if (hasGrowth(work))
            output << std::left << std::setw(nameWidth) << work.name << std::right << exponents(work.ours)
                   << exponents(work.fastestPeer) << "\n";
}

} // namespace tesk::benchmarks
