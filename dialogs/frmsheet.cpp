#include "dialogs/frmsheet.h"

#include "export/sheetpainter.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int kPreviewWidth = 300;
} // namespace

frmSheet::frmSheet(const Project& project, QWidget* parent) : QDialog(parent), project_(project) {
    setObjectName(QStringLiteral("frmSheet"));
    setWindowTitle(QStringLiteral("Contact Sheet"));

    Combo_PerPage = new QComboBox(this);
    Combo_PerPage->setObjectName(QStringLiteral("Combo_PerPage"));
    for (int n : kSheetPerPageChoices)
        Combo_PerPage->addItem(n == 0 ? QStringLiteral("One board") : QString::number(n), n);
    Combo_Paper = new QComboBox(this);
    Combo_Paper->setObjectName(QStringLiteral("Combo_Paper"));
    Option_Portrait = new QRadioButton(QStringLiteral("Portrait"), this);
    Option_Portrait->setObjectName(QStringLiteral("Option_Portrait"));
    Option_Portrait->setChecked(true);
    Option_Landscape = new QRadioButton(QStringLiteral("Landscape"), this);
    Option_Landscape->setObjectName(QStringLiteral("Option_Landscape"));
    const auto check = [this](const char* name, const char* caption, bool on) {
        auto* box = new QCheckBox(QString::fromUtf8(caption), this);
        box->setObjectName(QString::fromLatin1(name));
        box->setChecked(on);
        return box;
    };
    Check_Texts = check("Check_Texts", "Texts under the pictures", true);
    Check_Labels = check("Check_Labels", "Labels", false);
    Check_Urls = check("Check_Urls", "URLs (links in a PDF)", false);
    Check_Numbers = check("Check_Numbers", "Pane numbers", true);

    auto* page = new QGroupBox(QStringLiteral("Page"), this);
    auto* pageForm = new QFormLayout(page);
    pageForm->addRow(QStringLiteral("Panes per page :"), Combo_PerPage);
    pageForm->addRow(QStringLiteral("Paper :"), Combo_Paper);
    auto* orientation = new QHBoxLayout;
    orientation->addWidget(Option_Portrait);
    orientation->addWidget(Option_Landscape);
    pageForm->addRow(QStringLiteral("Orientation :"), orientation);
    auto* under = new QGroupBox(QStringLiteral("Under each picture"), this);
    auto* underColumn = new QVBoxLayout(under);
    for (QCheckBox* box : {Check_Numbers, Check_Texts, Check_Labels, Check_Urls})
        underColumn->addWidget(box);
    auto* note = new QLabel(QStringLiteral("The title is at the top and the footer at the bottom of every "
                                           "page, with the page number. Board, Properties sets them."),
                            this);
    note->setWordWrap(true);

    Preview = new QLabel(this);
    Preview->setObjectName(QStringLiteral("Preview"));
    Preview->setAccessibleName(QStringLiteral("First page"));
    Preview->setAlignment(Qt::AlignCenter);
    Preview->setFrameShape(QFrame::StyledPanel);
    Preview->setMinimumSize(kPreviewWidth + 8, kPreviewWidth * 297 / 210 + 8);

    Buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* options = new QVBoxLayout;
    options->addWidget(page);
    options->addWidget(under);
    options->addWidget(note);
    options->addStretch(1);
    auto* sides = new QHBoxLayout;
    sides->addLayout(options, 1);
    sides->addWidget(Preview);
    auto* whole = new QVBoxLayout(this);
    whole->addLayout(sides);
    whole->addWidget(Buttons);

    connect(Combo_PerPage, &QComboBox::currentIndexChanged, this, [this] { UpdatePreview(); });
    connect(Combo_Paper, &QComboBox::activated, this, [this] {
        paperChosen_ = true;
        UpdatePreview();
    });
    for (QAbstractButton* b : std::initializer_list<QAbstractButton*>{
             Option_Landscape, Check_Texts, Check_Labels, Check_Urls, Check_Numbers})
        connect(b, &QAbstractButton::toggled, this, [this] { UpdatePreview(); });
}

void frmSheet::Prepare(const QString& goCaption, QPageSize::PageSizeId defaultPaper) {
    Buttons->button(QDialogButtonBox::Ok)->setText(goCaption);
    const auto chosen = static_cast<QPageSize::PageSizeId>(Combo_Paper->currentData().toInt());
    QList<QPageSize::PageSizeId> papers{QPageSize::A4, QPageSize::Letter};
    if (!papers.contains(defaultPaper)) papers.prepend(defaultPaper);
    Combo_Paper->clear();
    for (QPageSize::PageSizeId id : papers)
        Combo_Paper->addItem(QPageSize::name(id), int(id));
    // The user's own choice of this session stays, otherwise the default is offered.
    const QPageSize::PageSizeId select = paperChosen_ && papers.contains(chosen) ? chosen : defaultPaper;
    Combo_Paper->setCurrentIndex(Combo_Paper->findData(int(select)));
    Combo_PerPage->setItemText(0, QStringLiteral("One board (%1 x %1)").arg(project_.GridSide));
}

SheetOptions frmSheet::Options() const {
    SheetOptions options;
    options.perPage = Combo_PerPage->currentData().toInt();
    options.landscape = Option_Landscape->isChecked();
    if (Combo_Paper->currentIndex() >= 0)
        options.paper = static_cast<QPageSize::PageSizeId>(Combo_Paper->currentData().toInt());
    options.texts = Check_Texts->isChecked();
    options.labels = Check_Labels->isChecked();
    options.urls = Check_Urls->isChecked();
    options.numbers = Check_Numbers->isChecked();
    return options;
}

void frmSheet::UpdatePreview() {
    if (!isVisible()) return;
    const QImage page = PreviewSheetPage(project_, Options(), kPreviewWidth * devicePixelRatio());
    QPixmap pixmap = QPixmap::fromImage(page);
    pixmap.setDevicePixelRatio(devicePixelRatio());
    Preview->setPixmap(pixmap);
}

void frmSheet::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    UpdatePreview();
}
