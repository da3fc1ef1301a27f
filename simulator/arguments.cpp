#include "simulator/arguments.h"

#include "simulator/text.h"

#include <cmath>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace orbkl4sim {

namespace {

const char* KindName(NumberRange::Kind kind) {
    switch (kind) {
        case NumberRange::Kind::kWhole: return "a whole number";
        case NumberRange::Kind::kEven: return "an even number";
        default: return "a number";
    }
}

bool IsOfKind(double number, NumberRange::Kind kind) {
    switch (kind) {
        case NumberRange::Kind::kWhole: return number == std::floor(number);
        case NumberRange::Kind::kEven: return std::fmod(number, 2) == 0;
        default: return true;
    }
}

/// What `range` requires, such as "must be a number from 0 to 1".
std::string Rule(const NumberRange& range) {
    std::ostringstream text;
    text.precision(10);
    text << "must be " << KindName(range.kind) << " from " << range.lowest << " to "
         << range.highest;
    return text.str();
}

std::string Quoted(std::string_view word) { return '"' + std::string(word) + '"'; }

}  // namespace

Arguments::Arguments(std::string_view text) : rest_(Trimmed(text)) {}

std::string_view Arguments::Word(const std::string& name) {
    if (AtEnd()) throw std::runtime_error(name + " is missing");
    const std::string_view word = rest_.substr(0, rest_.find_first_of(" \t"));
    rest_ = Trimmed(rest_.substr(word.size()));
    return word;
}

double Arguments::Number(const NumberRange& range) {
    if (AtEnd())
        throw std::runtime_error(std::string(range.name) + " is missing; it " + Rule(range));
    const std::string_view word = Word(range.name);
    const auto number = ToNumber(word);
    if (!number || !IsOfKind(*number, range.kind)) {
        throw std::runtime_error(Quoted(word) + " is not " + KindName(range.kind) + "; " +
                                 range.name + ' ' + Rule(range));
    }
    if (*number < range.lowest || *number > range.highest) {
        throw std::runtime_error(Quoted(word) + " is out of range; " + range.name + ' ' +
                                 Rule(range));
    }
    return *number;
}

double Arguments::LastNumber(const NumberRange& range) {
    const double number = Number(range);
    ExpectEnd();
    return number;
}

std::optional<double> Arguments::OptionalLastNumber(const NumberRange& range) {
    if (AtEnd()) return std::nullopt;
    return LastNumber(range);
}

bool Arguments::LastSwitch() {
    const std::string_view word = Word("on or off");
    if (word != "on" && word != "off") {
        throw std::runtime_error(Quoted(word) + " is neither on nor off");
    }
    ExpectEnd();
    return word == "on";
}

std::string_view Arguments::Rest() { return std::exchange(rest_, {}); }

void Arguments::ExpectEnd() const {
    if (!AtEnd()) throw std::runtime_error("unexpected " + Quoted(rest_));
}

}  // namespace orbkl4sim
