// Makes the help document of the manual's Markdown source.

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextDocument>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int pixelsPerInch = 96;
constexpr int pictureWidth = 480;  // pixels; A4 has 680 of them between the margins below
constexpr double marginMillimetres = 15;

/// Sets every picture of the document to the width of the page's text.
QString FitPictures(QString html) {
    return html.replace(QStringLiteral("<img "),
                        QStringLiteral("<img width=\"%1\" ").arg(pictureWidth));
}

/// The first picture of `markdown` that isn't in `folder`, empty where all are; the layout of a
/// document with a picture that isn't there would never end.
QString MissingPicture(const QString& markdown, const QDir& folder) {
    static const QRegularExpression picture(QStringLiteral(R"(!\[[^\]]*\]\(([^)]+)\))"));
    for (const auto& match : picture.globalMatch(markdown)) {
        if (!folder.exists(match.captured(1))) return match.captured(1);
    }
    return {};
}

/// Prints `document` page by page, in the width of the pages of `writer`.
void PrintPages(QTextDocument& document, QPdfWriter& writer) {
    const QSizeF page(writer.width(), writer.height());
    document.documentLayout()->setPaintDevice(&writer);
    document.setPageSize(page);
    QPainter painter(&writer);
    for (int number = 0; number < document.pageCount(); ++number) {
        if (number > 0) writer.newPage();
        const double top = number * page.height();
        painter.save();
        painter.translate(0, -top);
        document.drawContents(&painter, QRectF(QPointF(0, top), page));
        painter.restore();
    }
}

}  // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: orb-kl4-manual FOLDER_OF_SOURCE RESULT.pdf\n", stderr);
        return EXIT_FAILURE;
    }
    const QDir folder(arguments[1]);
    QFile source(folder.filePath(QStringLiteral("manual.md")));
    if (!source.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s can't be read\n", qPrintable(source.fileName()));
        return EXIT_FAILURE;
    }
    const QString text = QString::fromUtf8(source.readAll());
    if (const QString missing = MissingPicture(text, folder); !missing.isEmpty()) {
        std::fprintf(stderr, "the picture %s is missing\n", qPrintable(missing));
        return EXIT_FAILURE;
    }
    QPdfWriter writer(arguments[2]);
    writer.setTitle(QStringLiteral("ORB-KL4 Help"));
    writer.setPageSize(QPageSize(QPageSize::A4));
    const QMarginsF margins(marginMillimetres, marginMillimetres, marginMillimetres,
                            marginMillimetres);
    writer.setPageMargins(margins, QPageLayout::Millimeter);
    writer.setResolution(pixelsPerInch);

    QTextDocument markdown;
    markdown.setMarkdown(text);
    QTextDocument document;
    document.setBaseUrl(QUrl::fromLocalFile(folder.absolutePath() + QLatin1Char('/')));
    document.setHtml(FitPictures(markdown.toHtml()));
    PrintPages(document, writer);
    return EXIT_SUCCESS;
}
