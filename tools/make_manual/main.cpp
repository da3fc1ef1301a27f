// Makes the help document of the manual's Markdown source: orb-kl4-manual FOLDER_OF_SOURCE
// RESULT.pdf

#include "make_manual/contents.h"
#include "make_manual/pages.h"
#include "make_manual/pdf_outline.h"
#include "make_manual/piece_maker.h"
#include "make_manual/printer.h"
#include "make_manual/source.h"
#include "make_manual/style.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QSaveFile>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iterator>
#include <stdexcept>

namespace orbkl4manual {
namespace {

/// The places of the title page, the contents and the chapters, one after the other.
struct Layout {
    std::vector<Piece> title, body, contents;
    std::vector<Place> titlePlaces, contentsPlaces, bodyPlaces;
};

std::vector<Place> Spread(const std::vector<Piece>& pieces, int page, double top, int& nextPage) {
    Paginator paginator(page, top);
    paginator.Add(pieces);
    nextPage = paginator.PageCount();
    return paginator.Places();
}

/// Lays the chapters out, of which the first is the title page.
Layout LayOut(const std::vector<Chapter>& chapters, const QDir& folder, QPaintDevice& device) {
    PieceMaker maker(folder, device);
    Layout layout;
    layout.title = maker.PiecesOf(chapters.front());
    for (std::size_t i = 1; i < chapters.size(); ++i) {
        std::ranges::move(maker.PiecesOf(chapters[i]), std::back_inserter(layout.body));
    }
    int contentsPage = 0;
    int bodyPage = 0;
    int end = 0;
    layout.titlePlaces = Spread(layout.title, 0, style::titleTop, contentsPage);
    // The numbers of the pages follow once it is known how many the contents take.
    const auto noPage = [](const Piece&) { return 0; };
    layout.contents = ContentsOf(layout.body, noPage, device);
    Spread(layout.contents, contentsPage, style::top, bodyPage);
    layout.bodyPlaces = Spread(layout.body, bodyPage, style::top, end);
    QHash<const Piece*, int> pages;
    for (const Place& place : layout.bodyPlaces) pages.insert(place.piece, place.page);
    const auto pageOf = [&](const Piece& piece) { return pages.value(&piece) + 1; };
    layout.contents = ContentsOf(layout.body, pageOf, device);
    layout.contentsPlaces = Spread(layout.contents, contentsPage, style::top, bodyPage);
    return layout;
}

QByteArray Pdf(const QDir& folder) {
    const std::vector<Chapter> chapters = ReadChapters(folder);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(QStringLiteral("ORB-KL4 Help"));
    Printer printer(writer);
    const Layout layout = LayOut(chapters, folder, writer);
    printer.Print(layout.titlePlaces, false);
    printer.Print(layout.contentsPlaces, true);
    printer.Print(layout.bodyPlaces, true);
    printer.End();
    return WithNavigation(buffer.data(), {printer.Outline(), printer.Links()});
}

void Save(const QByteArray& pdf, const QString& path) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size() || !file.commit()) {
        throw std::runtime_error(path.toStdString() + " can't be written");
    }
}

}  // namespace
}  // namespace orbkl4manual

int main(int argc, char** argv) {
    // Fonts and pictures are all that it needs of a platform; none has to be there.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: orb-kl4-manual FOLDER_OF_SOURCE RESULT.pdf\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        orbkl4manual::Save(orbkl4manual::Pdf(QDir(arguments[1])), arguments[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orb-kl4-manual: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
