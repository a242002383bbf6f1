#pragma once

#include <apps/measure/Expectation.h>

#include <OpenSG/OSGVector.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tesk::measure {

/// A number of a report; the label stands in tables, the key in JSON.
struct ReportedNumber {
    std::string label;
    std::string key;
    float number;
};

/// A point or vector of a report.
struct ReportedVector {
    std::string label;
    std::string key;
    osg::Vec3f vector;
    /// The node that a point belongs to, empty when there is none.
    std::string node;
};

/// What a measurement found, ready to be written in any form.
struct Report {
    std::string kind;
    std::string name;
    /// The first one is the measured value, which the expectations are about.
    std::vector<ReportedNumber> numbers;
    std::vector<ReportedVector> vectors;
    /// How many samples the numbers sum up, where there are samples.
    std::optional<std::size_t> sampleCount;
    std::vector<Expectation> expectations;
    /// What is wrong: why there is no value, and no numbers then, or which node is missing.
    std::string problem;

    /// Kind and name, as titles have it.
    std::string getTitle() const { return name.empty() ? kind : kind + ": " + name; }
    /// No expectation is met without a value.
    bool isMet(const Expectation& expectation) const {
        return !numbers.empty() && expectation.isMetBy(numbers.front().number);
    }
};

} // namespace tesk::measure
