#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace orbkl4::cli {

class CliError;

enum class Colour : std::uint8_t { None, Good, Bad, Faint };

/// One entry of a table.
struct Cell {
    Cell(QString content, Colour kind = Colour::None) : text(std::move(content)), colour(kind) {}
    Cell(const char* content) : Cell(QString::fromUtf8(content)) {}
    Cell(const std::string& content) : Cell(QString::fromStdString(content)) {}

    QString text;
    Colour colour = Colour::None;
};

/// What people read: columns as wide as they need, two blanks between them.
struct Table {
    std::vector<Cell> heading;  ///< empty for none
    std::vector<std::vector<Cell>> rows;
};

/// The one way out: tables or JSON to standard output, messages to standard error.
class Output {
  public:
    Output(bool json, bool quiet) : json_(json), quiet_(quiet) {}

    bool Json() const { return json_; }
    bool Quiet() const { return quiet_; }

    /// Prints `document`, with "format": `format` and "version": 1 added, in JSON, else `table`;
    /// throws `Failure::System` if standard output takes no more.
    void Show(const char* format, QJsonObject document, const Table& table) const;

    /// Prints `text` as it is to standard output; throws as `Show` does.
    void Print(const QString& text) const;

    /// Prints one line to standard error, "orb-kl4: text"; nothing under --quiet.
    void Message(const std::string& text) const;

    /// Prints one line to standard error as `Message` does, under --quiet too.
    void Warn(const std::string& text) const;

    /// Prints an error and its remedy to standard error, and in JSON to standard output as well.
    void Fail(const CliError& error) const;

  private:
    bool json_;
    bool quiet_;
};

/// Whether what goes to `descriptor` may have colours: on a terminal, or if CLICOLOR_FORCE
/// demands it; never under NO_COLOR, nor on a dumb terminal.
bool MayColour(int descriptor);

}  // namespace orbkl4::cli
