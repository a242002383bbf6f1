#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tesk::measure {

/// A demand on a measured value, such as `>= 1.5`.
class Expectation {
public:
    /// Reads one of < <= > >= == != and a number, blanks around them allowed; nothing when the text is anything else.
    static std::optional<Expectation> parse(std::string_view text);

    /// Compares in single precision, so that a value printed with 9 digits equals itself. NaN meets nothing, not even
    /// `!=`.
    bool isMetBy(float value) const;
    /// Operator and number with one blank between, as they were given.
    const std::string& getText() const { return text; }

private:
    enum class Relation { less, lessOrEqual, greater, greaterOrEqual, equal, unequal };

    Expectation(Relation relation, float number, std::string text);

    Relation relation;
    float number;
    std::string text;
};

/// A demand on the value of a named measurement, such as `vessel to stirrer >= 1.5`.
struct NamedExpectation {
    std::string name;
    Expectation expectation;

    /// Reads a name, which may contain blanks and operators, then what Expectation reads; nothing when either is
    /// missing.
    static std::optional<NamedExpectation> parse(std::string_view text);
};

} // namespace tesk::measure
