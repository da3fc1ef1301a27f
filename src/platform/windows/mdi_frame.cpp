#include "platform/windows/mdi_frame.h"

#include "platform/windows/colours.h"
#include "platform/windows/foot_line.h"
#include "platform/windows/resize.h"
#include "platform/windows/screen.h"
#include "platform/windows/screen_registry.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QScreen>
#include <QVBoxLayout>

namespace orbkl4 {

namespace {

constexpr QSize startSize(1240, 760);
constexpr QSize leastSize(960, 600);
constexpr QSize windowBorder(16, 48);  ///< room for what window managers put around a window
constexpr double twipsPerInch = 1440;

/// The strip that shows the title of the visible child.
QLabel* MakeHeading() {
    auto* heading = new QLabel;
    heading->setObjectName(QStringLiteral("lblHeading"));
    heading->setTextFormat(Qt::PlainText);
    heading->setAutoFillBackground(true);
    heading->setContentsMargins(14, 6, 14, 6);
    QPalette palette = heading->palette();
    palette.setColor(QPalette::Window, colours::heading());
    palette.setColor(QPalette::WindowText, colours::onHeading());
    heading->setPalette(palette);
    QFont font = heading->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    heading->setFont(font);
    return heading;
}

/// How wide a window must be to show its title beside the buttons of its title bar.
int TitleWidth(const QWidget& window) {
    constexpr double buttons = 120;
    QFont font = QApplication::font();
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(window.windowTitle()) +
           qRound(buttons * DisplayScale(window));
}

/// Where a window's contents may lie on the display that shows `window`.
QRect FreeArea(const QWidget& window) {
    const QRect available = window.screen()->availableGeometry();
    return available.adjusted(windowBorder.width() / 2, windowBorder.height() * 3 / 4,
                              -windowBorder.width() / 2, -windowBorder.height() / 4);
}

/// `place`, moved into `area`; its upper left corner stays inside where it is too large.
QRect MovedInto(QRect place, const QRect& area) {
    if (place.right() > area.right()) place.moveRight(area.right());
    if (place.bottom() > area.bottom()) place.moveBottom(area.bottom());
    if (place.left() < area.left()) place.moveLeft(area.left());
    if (place.top() < area.top()) place.moveTop(area.top());
    return place;
}

}  // namespace

MdiFrame::MdiFrame(const char* name, const char* title)
    : heading_(MakeHeading()), area_(new QWidget), foot_(new FootLine) {
    setObjectName(QString::fromUtf8(name));
    setWindowTitle(QString::fromUtf8(title));
    area_->installEventFilter(this);
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(heading_);
    column->addWidget(area_, 1);
    column->addWidget(foot_);
    setCentralWidget(centre);
    setMinimumSize(leastSize);
    resize(startSize);
}

MdiFrame::~MdiFrame() { UnloadAllScreens(); }

void MdiFrame::ShowChild(Screen& screen) {
    children_ += &screen;
    screen.setParent(area_);
    ShowTop();
}

void MdiFrame::ShowTop() {
    menuBar()->clear();
    heading_->clear();
    if (children_.isEmpty()) return;
    Screen* top = children_.constLast();
    for (Screen* child : children_) child->setVisible(child == top);
    top->setGeometry(area_->rect());
    heading_->setText(top->windowTitle());
    menuBar()->addActions(top->MenuBarEntries());
    top->setFocus();
}

void MdiFrame::ShowDialog(Screen& screen) {
    if (!screen.MenuBarEntries().isEmpty()) {
        auto* bar = new QMenuBar;
        bar->addActions(screen.MenuBarEntries());
        screen.layout()->setMenuBar(bar);
    }
    screen.setWindowModality(Qt::WindowModal);
    ShowOver(screen, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}

void MdiFrame::ShowModeless(Screen& screen) {
    ShowOver(screen, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
}

void MdiFrame::ShowOver(Screen& screen, Qt::WindowFlags flags) {
    screen.setParent(this, flags);
    const int titleWidth = TitleWidth(screen);
    if (screen.minimumWidth() < titleWidth) screen.setMinimumWidth(titleWidth);
    screen.adjustSize();
    // Qt leaves a window no more than two thirds of the display, also where that cuts its contents.
    const QRect area = FreeArea(*this);
    screen.resize(screen.size().expandedTo(screen.sizeHint()).boundedTo(area.size()));
    QRect place = screen.rect();
    place.moveCenter(geometry().center());
    screen.move(MovedInto(place, area).topLeft());
    screen.show();
}

void MdiFrame::Foot(const QString& text, const QString& more) { foot_->Show(text, more); }

void MdiFrame::FitInto(const QRect& available) {
    const double enlarged = DisplayScale(*this);
    const QSize room = available.size() - windowBorder;
    setMinimumSize((leastSize * enlarged).boundedTo(room));
    const QSize usual = startSize * enlarged;
    resize(usual.boundedTo(room));
    if (size() != usual) setWindowState(Qt::WindowMaximized);
}

void MdiFrame::Remove(Screen& screen) {
    if (children_.removeAll(&screen) > 0) return ShowTop();
    // A dialog and a box over it that close together leave some desktops without an active window.
    if (QGuiApplication::applicationState() == Qt::ApplicationActive) activateWindow();
}

void MdiFrame::ChangeWidth(int twips) {
    const double pixels = twips * logicalDpiX() / twipsPerInch;
    resize(width() + qRound(pixels), height());
}

void MdiFrame::closeEvent(QCloseEvent* event) {
    UnloadAllScreens();
    event->accept();
}

bool MdiFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == area_ && event->type() == QEvent::Resize && !children_.isEmpty()) {
        children_.constLast()->setGeometry(area_->rect());
    }
    return QMainWindow::eventFilter(watched, event);
}

}  // namespace orbkl4
