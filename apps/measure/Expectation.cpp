#include <apps/measure/Expectation.h>

#include <apps/measure/Numbers.h>

#include <cmath>
#include <utility>

namespace tesk::measure {

namespace {

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

std::optional<Expectation> Expectation::parse(std::string_view text) {
    // The longer operators come first: "<" is the beginning of "<=".
    constexpr std::pair<std::string_view, Relation> relations[] = {
        {"<=", Relation::lessOrEqual}, {">=", Relation::greaterOrEqual},
        {"==", Relation::equal},       {"!=", Relation::unequal},
        {"<", Relation::less},         {">", Relation::greater},
    };
    text = trimmed(text);
    for (const auto& [symbol, relation] : relations) {
        if (text.substr(0, symbol.size()) != symbol) continue;
        const std::string_view rest = trimmed(text.substr(symbol.size()));
        const auto number = parseNumber(rest);
        if (!number) return std::nullopt;
        return Expectation(relation, *number, std::string(symbol) + " " + std::string(rest));
    }
    return std::nullopt;
}

Expectation::Expectation(Relation wantedRelation, float wantedNumber, std::string wantedText)
    : relation(wantedRelation), number(wantedNumber), text(std::move(wantedText)) {}

std::optional<NamedExpectation> NamedExpectation::parse(std::string_view text) {
    // A number has none of these, so the last one ends the operator.
    constexpr std::string_view operatorCharacters = "<>=!";
    const std::size_t last = text.find_last_of(operatorCharacters);
    if (last == std::string_view::npos) return std::nullopt;
    const bool isLong = last > 0 && text[last] == '=' && operatorCharacters.find(text[last - 1]) != std::string::npos;
    const std::size_t first = isLong ? last - 1 : last;
    const std::string_view name = trimmed(text.substr(0, first));
    const auto expectation = Expectation::parse(text.substr(first));
    if (name.empty() || !expectation) return std::nullopt;
    return NamedExpectation{std::string(name), *expectation};
}

bool Expectation::isMetBy(float value) const {
    if (std::isnan(value)) return false;
    switch (relation) {
    case Relation::less:
        return value < number;
    case Relation::lessOrEqual:
        return value <= number;
    case Relation::greater:
        return value > number;
    case Relation::greaterOrEqual:
        return value >= number;
    case Relation::equal:
        return value == number;
    case Relation::unequal:
        return value != number;
    }
    return false;
}

} // namespace tesk::measure
