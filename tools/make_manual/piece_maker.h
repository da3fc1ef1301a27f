#pragma once

#include "make_manual/piece.h"
#include "make_manual/source.h"

#include <QDir>
#include <QTextFrame>

#include <vector>

namespace orbkl4manual {

/// Cuts chapters into pieces, laid out for one device.
class PieceMaker {
  public:
    /// Pictures are looked for from `folder` on.
    PieceMaker(const QDir& folder, QPaintDevice& device) : folder_(folder), device_(device) {}

    /// The pieces of `chapter`; throws std::runtime_error where a picture is missing.
    std::vector<Piece> PiecesOf(const Chapter& chapter);

  private:
    void AddBlock(const QTextBlock& block);
    void AddHeading(const QTextBlock& block, int level);
    void AddText(const QTextBlock& block);
    void AddCode();
    void AddPicture(const QTextImageFormat& format);

    QDir folder_;
    QPaintDevice& device_;
    QString file_;
    QStringList code_;  // the lines of the code block under way
    std::vector<Piece> pieces_;
};

}  // namespace orbkl4manual
