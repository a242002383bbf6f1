#include <apps/measure/JsonReport.h>

#include <apps/measure/NodeListing.h>
#include <apps/measure/Numbers.h>

#include <nlohmann/json.hpp>

#include <charconv>
#include <cmath>

namespace tesk::measure {

namespace {

using Json = nlohmann::ordered_json;

/// The double nearest to the 9 digits, which the JSON library writes as exactly these digits.
Json number(float value) {
    if (!std::isfinite(value)) return nullptr;
    const std::string digits = formatNumber(value, 9);
    double rounded = 0.0;
    std::from_chars(digits.data(), digits.data() + digits.size(), rounded);
    return rounded;
}

template <typename Vector> Json numbers(const Vector& vector) {
    return {number(vector[0]), number(vector[1]), number(vector[2])};
}

std::string text(const Json& json) { return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n"; }

Json listedNode(const SceneCatalogue& catalogue, const CatalogueNode& node) {
    const auto bounds = worldBounds(node.node);
    Json json;
    json["name"] = node.name;
    json["kind"] = nodeKind(node);
    json["file"] = catalogue.getFiles()[node.file].path;
    json["parent"] = node.isFileRoot() ? Json() : Json(catalogue.getNodes()[node.parent].name);
    json["depth"] = node.depth;
    json["triangles"] = node.content.triangles;
    json["lines"] = node.content.lines;
    json["bounds"] = bounds ? Json{{"min", numbers(bounds->lower)}, {"max", numbers(bounds->upper)}} : Json();
    return json;
}

Json reportedMeasurement(const Report& report) {
    Json json;
    json["kind"] = report.kind;
    json["name"] = report.name;
    for (const ReportedNumber& reported : report.numbers) json[reported.key] = number(reported.number);
    if (report.sampleCount) json["samples"] = *report.sampleCount;
    for (const ReportedVector& reported : report.vectors) json[reported.key] = numbers(reported.vector);
    for (const ReportedVector& reported : report.vectors)
        if (!reported.node.empty()) json["nodes"][reported.key] = reported.node;
    for (const Expectation& expectation : report.expectations) {
        json["expectations"].push_back({{"condition", expectation.getText()}, {"met", report.isMet(expectation)}});
    }
    if (!report.problem.empty()) json["problem"] = report.problem;
    return json;
}

} // namespace

std::string jsonReport(const Report& report) { return text(reportedMeasurement(report)); }

std::string jsonReports(const std::vector<Report>& reports) {
    Json measurements = Json::array();
    for (const Report& report : reports) measurements.push_back(reportedMeasurement(report));
    return text(Json{{"measurements", std::move(measurements)}});
}

std::string jsonList(const SceneCatalogue& catalogue) {
    Json nodes = Json::array();
    for (const CatalogueNode& node : catalogue.getNodes()) nodes.push_back(listedNode(catalogue, node));
    return text(Json{{"nodes", std::move(nodes)}});
}

} // namespace tesk::measure
