#pragma once

#include <apps/measure/Expectation.h>

#include <OpenSG/OSGVector.h>

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
    std::vector<Expectation> expectations;

    bool isMet(const Expectation& expectation) const { return expectation.isMetBy(numbers.front().number); }
};

} // namespace tesk::measure
