#include "make_manual/piece_maker.h"

#include "make_manual/style.h"
#include "make_manual/table.h"

#include <QRegularExpression>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <array>
#include <stdexcept>
#include <utility>

namespace orbkl4manual {

namespace {

constexpr double textBefore = Millimetres(2.2);
constexpr double itemBefore = Millimetres(1);
constexpr double itemIndent = Millimetres(7);
constexpr double codePadding = Millimetres(2);
constexpr double pictureBefore = Millimetres(4);
constexpr double captionGap = Millimetres(1.5);
constexpr double usualPictureWidth = 150;  // millimetres
constexpr double widestPixel = 0.2;        // likewise, so that small pictures aren't coarse
constexpr std::array headingBefore{Millimetres(14), Millimetres(7), Millimetres(5)};

/// What a heading is called in a link, as sites that show Markdown have it.
QString AnchorOf(const QString& heading) {
    static const QRegularExpression dropped(QStringLiteral(R"([^\w\- ])"));
    return heading.toLower().remove(dropped).replace(QLatin1Char(' '), QLatin1Char('-'));
}

/// The picture that `block` consists of; without a name where it is none.
QTextImageFormat PictureIn(const QTextBlock& block) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        if (it.fragment().charFormat().isImageFormat()) {
            return it.fragment().charFormat().toImageFormat();
        }
    }
    return {};
}

/// The width in millimetres that a picture's title, such as "90 mm", asks for.
double WidthAskedFor(const QString& title) {
    bool isNumber = false;
    const double width = title.section(QLatin1Char(' '), 0, 0).toDouble(&isNumber);
    return isNumber ? width : usualPictureWidth;
}

}  // namespace

std::vector<Piece> PieceMaker::PiecesOf(const Chapter& chapter) {
    QTextDocument document;
    document.setMarkdown(chapter.markdown);
    file_ = chapter.file;
    const QTextFrame* root = document.rootFrame();
    for (auto it = root->begin(); !it.atEnd(); ++it) {
        if (const auto* table = qobject_cast<const QTextTable*>(it.currentFrame())) {
            AddCode();
            for (Piece& piece : TablePieces(*table, device_)) pieces_.push_back(std::move(piece));
        } else if (it.currentBlock().isValid()) {
            AddBlock(it.currentBlock());
        }
    }
    AddCode();
    return std::exchange(pieces_, {});
}

void PieceMaker::AddBlock(const QTextBlock& block) {
    if (block.blockFormat().hasProperty(QTextFormat::BlockCodeFence) ||
        block.blockFormat().hasProperty(QTextFormat::BlockCodeLanguage)) {
        code_ += block.text();
        return;
    }
    AddCode();
    if (block.text().isEmpty()) return;
    const int level = block.blockFormat().headingLevel();
    const QTextImageFormat picture = PictureIn(block);
    if (level > 0) {
        AddHeading(block, level);
    } else if (!picture.name().isEmpty()) {
        AddPicture(picture);
    } else {
        AddText(block);
    }
}

void PieceMaker::AddHeading(const QTextBlock& block, int level) {
    const auto row = static_cast<std::size_t>(level) - 1;
    const bool titlePage = file_.startsWith(QLatin1String("00-"));
    const double points = titlePage ? style::titleSize : std::to_array(style::headingSizes).at(row);
    TextBox box(RunsOf(block), {style::Text(points, true), style::accent}, device_);
    box.Width(style::width);
    Piece piece{.kind = PieceKind::Heading,
                .before = headingBefore.at(row),
                .height = box.Height(),
                .keepWithNext = true,
                .level = level,
                .title = block.text()};
    piece.anchor = file_ + QLatin1Char('#') + AnchorOf(piece.title);
    piece.boxes.push_back(std::move(box));
    pieces_.push_back(std::move(piece));
}

void PieceMaker::AddText(const QTextBlock& block) {
    const Look look{style::Text(), style::ink};
    const QTextList* list = block.textList();
    const bool follows = list != nullptr && list->itemNumber(block) > 0;
    TextBox box(RunsOf(block), look, device_);
    box.Width(list != nullptr ? style::width - itemIndent : style::width);
    Piece piece{.before = follows ? itemBefore : textBefore, .height = box.Height()};
    if (list != nullptr) {
        box.at.setX(itemIndent);
        const bool numbered = list->format().style() == QTextListFormat::ListDecimal;
        const QString marker = numbered ? list->itemText(block) : QStringLiteral("\u2022");
        piece.boxes.emplace_back(std::vector<Run>{{marker}}, look, device_);
        piece.boxes.back().at.setX(numbered ? 0 : itemIndent / 3);
    }
    // No first item is alone below its heading.
    piece.keepWithNext = block.text().endsWith(QLatin1Char(':')) ||
                         (list != nullptr && !follows && list->count() > 1);
    piece.boxes.push_back(std::move(box));
    pieces_.push_back(std::move(piece));
}

void PieceMaker::AddCode() {
    if (code_.isEmpty()) return;
    const QString text = std::exchange(code_, {}).join(QChar::LineSeparator);
    TextBox box({{text}}, {style::Mono(), style::ink}, device_);
    box.Width(style::width - 2 * codePadding);
    box.at = {codePadding, codePadding};
    Piece piece{
        .kind = PieceKind::Code, .before = textBefore, .height = box.Height() + 2 * codePadding};
    piece.boxes.push_back(std::move(box));
    pieces_.push_back(std::move(piece));
}

void PieceMaker::AddPicture(const QTextImageFormat& format) {
    const QString path = folder_.filePath(format.name());
    Piece piece{.kind = PieceKind::Picture, .before = pictureBefore, .picture = QImage(path)};
    if (piece.picture.isNull()) {
        throw std::runtime_error("the picture " + path.toStdString() + " is missing");
    }
    const double width =
        std::min(Millimetres(WidthAskedFor(format.stringProperty(QTextFormat::ImageTitle))),
                 Millimetres(widestPixel) * piece.picture.width());
    piece.pictureSize =
        QSizeF(piece.picture.size()).scaled(width, style::height, Qt::KeepAspectRatio);
    const QString caption = format.stringProperty(QTextFormat::ImageAltText);
    TextBox box({{caption}}, {style::Text(style::smallSize), style::faintInk, Qt::AlignHCenter},
                device_);
    box.Width(style::width);
    box.at = {0, captionGap};
    piece.height = piece.pictureSize.height() + captionGap + box.Height();
    piece.boxes.push_back(std::move(box));
    pieces_.push_back(std::move(piece));
}

}  // namespace orbkl4manual
