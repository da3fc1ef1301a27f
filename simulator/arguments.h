#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orbkl4sim {

/// The name and the valid values of a number in a command or a file.
struct NumberRange {
    const char* name;
    double lowest;
    double highest;
    enum class Kind { kAny, kWhole, kEven } kind = Kind::kAny;
};

/// The words of a command or of a line in a file, read from left to right. All functions throw
/// std::runtime_error with an explanation for a wrong or missing word.
class Arguments {
  public:
    /// `text` must outlive this object.
    explicit Arguments(std::string_view text);

    bool AtEnd() const { return rest_.empty(); }

    /// The next word; `name` is what an error says is missing.
    std::string_view Word(const std::string& name);

    /// The next word as a number of `range`.
    double Number(const NumberRange& range);

    /// The last word as a number of `range`.
    double LastNumber(const NumberRange& range);

    /// The last word as a number of `range`; nothing if there is none.
    std::optional<double> OptionalLastNumber(const NumberRange& range);

    /// Whether the last word is `on`; it must be `on` or `off`.
    bool LastSwitch();

    /// Everything that is left.
    std::string_view Rest();

    void ExpectEnd() const;

  private:
    std::string_view rest_;
};

}  // namespace orbkl4sim
