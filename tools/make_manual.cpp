// Makes the help document of the manual's Markdown source.

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int pictureWidth = 520;  // points, on A4 with the margins below
constexpr double marginMillimetres = 15;

/// Sets every picture of the document to the width of the page's text.
QString FitPictures(QString html) {
    return html.replace(QStringLiteral("<img "),
                        QStringLiteral("<img width=\"%1\" ").arg(pictureWidth));
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
    QPdfWriter writer(arguments[2]);
    writer.setTitle(QStringLiteral("ORB-KL4 Help"));
    writer.setPageSize(QPageSize(QPageSize::A4));
    const QMarginsF margins(marginMillimetres, marginMillimetres, marginMillimetres,
                            marginMillimetres);
    writer.setPageMargins(margins, QPageLayout::Millimeter);

    QTextDocument markdown;
    markdown.setMarkdown(QString::fromUtf8(source.readAll()));
    QTextDocument document;
    document.setBaseUrl(QUrl::fromLocalFile(folder.absolutePath() + QLatin1Char('/')));
    document.setHtml(FitPictures(markdown.toHtml()));
    document.print(&writer);
    return EXIT_SUCCESS;
}
