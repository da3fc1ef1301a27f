#include "acquire/screens/view_layout.h"

#include "base/number_text.h"
#include "platform/controls/cw_button.h"
#include "platform/controls/cw_slide.h"
#include "platform/controls/form.h"
#include "platform/controls/text_field.h"
#include "platform/windows/font_following.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>
#include <string_view>

namespace orbkl4 {

namespace {

constexpr int fieldRowGap = 2;    // between rows of fields, in pixels
constexpr int fieldGroupGap = 6;  // between groups of them, besides
constexpr Axis rawWords{.minimum = 0, .maximum = 65535, .marks = 5000, .subMarks = 2500};

TextField* MakeField(QWidget* frame, const char* name, int decimals) {
    auto* field = Named(new TextField(frame), name);
    field->Decimals(decimals);
    return field;
}

/// The label `text` of `control`, in the same frame.
QLabel* MakeFieldLabel(QWidget* control, const char* text) {
    auto* label = new QLabel(QString::fromUtf8(text), control->parentWidget());
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(control);
    return label;
}

/// Fills a panel's grid: one labelled field per row and column, except for the elements of a
/// matrix.
class PanelFiller {
  public:
    PanelFiller(QWidget* frame, const TextPanel& panel)
        : frame_(frame), panel_(panel), grid_(new QGridLayout(frame)) {
        constexpr int columnGap = 12;
        ShareWidth();
        grid_->setHorizontalSpacing(columnGap);
        grid_->setVerticalSpacing(fieldRowGap);
    }

    TextField* Add(const TextRow& row) {
        TextField* field = MakeField(frame_, row.name, panel_.decimals);
        QLabel* label = MakeFieldLabel(field, row.label);
        if (row.startsGroup) StartGroup();
        ++fields_;
        if (panel_.layout == TextPanel::Layout::Matrix && row.label[0] == 'M') {
            AddElement(row.label, label, field);
        } else {
            grid_->addWidget(label, row_, column_);
            grid_->addWidget(field, row_, column_ + 1, Qt::AlignVCenter);  // lets the row grow
            grid_->setRowStretch(row_++, 1);
        }
        return field;
    }

    /// Keeps few rows from spreading over the whole height of the panel.
    void Finish() {
        constexpr int rowsBelow = 4;
        grid_->setRowStretch(grid_->rowCount(), rowsBelow);
        TabThrough(elements_);
    }

  private:
    /// Divides the width of the current column between label and field.
    void ShareWidth() {
        grid_->setColumnStretch(column_, 3);
        grid_->setColumnStretch(column_ + 1, 2);
    }

    /// Leaves a gap. The second column starts with a group of the second half, beside the first
    /// one.
    void StartGroup() {
        if (firstGroup_ < 0) firstGroup_ = row_;
        const bool half = 2 * fields_ >= panel_.rows.size();
        if (panel_.layout == TextPanel::Layout::TwoColumns && half && column_ == 0) {
            constexpr int gap = 24;
            column_ = 3;
            row_ = firstGroup_;
            grid_->setColumnMinimumWidth(column_ - 1, gap);
            ShareWidth();
        }
        grid_->addItem(new QSpacerItem(0, fieldGroupGap), row_++, column_);
    }

    /// Puts the element `name`, such as "M21", in its place among the nine, its label above it.
    void AddElement(std::string_view name, QLabel* label, TextField* field) {
        constexpr int narrow = 8;
        constexpr int lines = 6;
        if (matrix_ == nullptr) {
            matrix_ = new QGridLayout;
            elements_.resize(9);
            matrix_->setSpacing(fieldRowGap);
            grid_->addLayout(matrix_, row_, 0, 1, 2);
            grid_->setRowStretch(row_++, lines);
        }
        const int line = 2 * (name[1] - '1');
        const int column = name[2] - '1';
        elements_[3 * (name[1] - '1') + column] = field;
        field->Characters(narrow);
        matrix_->addWidget(label, line, column, Qt::AlignHCenter | Qt::AlignBottom);
        matrix_->addWidget(field, line + 1, column, Qt::AlignTop);
    }

    QWidget* frame_;
    const TextPanel& panel_;
    QGridLayout* grid_;
    QGridLayout* matrix_ = nullptr;
    QList<QWidget*> elements_;  ///< of the matrix, by rows
    int row_ = 0;
    int column_ = 0;
    int firstGroup_ = -1;  ///< the row of its gap
    std::size_t fields_ = 0;
};

QWidget* BuildDial(QWidget* screen, const DialRow& row) {
    constexpr double readout = 2;
    QGroupBox* frame = MakeFrame(screen, row.frame, row.caption);
    auto* dial = Named(new CWKnob(frame), row.name);
    dial->SetAxis(row.axis, row.sweep);
    dial->Caption(QStringLiteral("degrees"));
    TextField* text = MakeField(frame, row.text, 1);
    text->setAccessibleName(frame->title() + QStringLiteral(", degrees"));
    text->Characters(7);
    text->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    KeepFontScaled(*text, readout);
    QObject::connect(dial, &CWKnob::ValueChanged, text,
                     [text](double value) { text->Text(ScreenText(value)); });
    auto* column = new QVBoxLayout(frame);
    column->addWidget(dial, 1);
    column->addWidget(text, 0, Qt::AlignHCenter);
    return frame;
}

}  // namespace

QWidget* BuildPanel(QWidget* screen, const TextPanel& panel,
                    std::vector<Shown<TextField>>& fields) {
    QGroupBox* frame = MakeFrame(screen, panel.name, panel.caption);
    PanelFiller filler(frame, panel);
    for (const TextRow& row : panel.rows) fields.push_back({row.field, filler.Add(row)});
    filler.Finish();
    if (panel.led[0] != '\0') MakeLamp(*frame, panel.led);
    return frame;
}

QWidget* BuildSlides(QWidget* screen, std::span<const SlideRow> rows,
                     std::vector<Shown<CWSlide>>& slides) {
    QGroupBox* frame = MakeFrame(screen, "fraSlider", "Sliders");
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(0);
    int column = 0;
    for (const SlideRow& row : rows) {
        auto* slide = Named(new CWSlide(frame), row.name);
        slide->SetAxis(rawWords);
        grid->addWidget(slide, 0, column);
        grid->addWidget(MakeFieldLabel(slide, row.label), 1, column++, Qt::AlignHCenter);
        slides.push_back({row.field, slide});
    }
    return frame;
}

QWidget* BuildDials(QWidget* screen, std::span<const DialRow> rows,
                    std::vector<Shown<CWKnob>>& dials) {
    auto* row = new QWidget(screen);
    auto* grid = new QGridLayout(row);
    grid->setContentsMargins(0, 0, 0, 0);
    std::vector<const DialRow*> byColumn;  // made in this order, so that Tab follows it
    for (const DialRow& dial : rows) byColumn.push_back(&dial);
    std::ranges::sort(byColumn, {}, &DialRow::column);
    for (const DialRow* dial : byColumn) {
        grid->addWidget(BuildDial(screen, *dial), 0, dial->column);
        grid->setColumnStretch(dial->column, 1);
    }
    for (const DialRow& dial : rows)
        dials.push_back({dial.field, row->findChild<CWKnob*>(QLatin1String(dial.name))});
    return row;
}

QWidget* BuildCapturing(QWidget* screen) {
    QGroupBox* frame = MakeFrame(screen, "fraCS", "Capturing");
    auto* row = new QHBoxLayout(frame);
    const auto add = [&](const char* led, const char* label) {
        auto* lamp = Named(new CWButton(frame), led);
        row->addWidget(lamp);
        row->addWidget(MakeFieldLabel(lamp, label));
    };
    add("LED", "Gyro-Stablized");
    row->addSpacing(24);
    add("LEDI", "Instantaneous");
    return frame;
}

}  // namespace orbkl4
