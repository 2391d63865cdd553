#include "stage/frmmain.h"

#include "stage/progress.h"

#include "dialogs/frmsheet.h"
#include "export/sheetpainter.h"

#include <QDir>
#include <QFileInfo>
#include <QPaintEngine>
#include <QPrintPreviewDialog>
#include <QPrinter>

QString frmMain::SheetPdfName() const {
    if (ProjectFile.isEmpty()) return QStringLiteral("Untitled.pdf");
    const QFileInfo file(ProjectFile);
    return file.dir().filePath(file.completeBaseName() + QStringLiteral(".pdf"));
}

void frmMain::PaintSheetOn(QPrinter& printer, const SheetOptions& options, QWidget* progressParent) {
    // The preview's own page settings (its orientation buttons) lay the pages out.
    SheetOptions onPrinter = options;
    onPrinter.landscape = printer.pageLayout().orientation() == QPageLayout::Landscape;
    // The preview keeps every page in memory as a recording: it gets screen-sized pictures, the
    // printout itself (painted again when the preview prints) the sheet's resolution.
    if (printer.paintEngine() && printer.paintEngine()->type() == QPaintEngine::Picture)
        onPrinter.dpi = qMin(onPrinter.dpi, 120);
    const SheetLayout layout = LayOutSheet(project, onPrinter, SheetPageSize(printer.pageLayout()));
    ProgressWindow progress(progressParent, project, QStringLiteral("Printing the contact sheet ..."), true);
    PaintSheet(printer, project, onPrinter, layout, progress.CancellableCallback());
}

void frmMain::mnu_Print_Click() {
    QPrinter printer(QPrinter::HighResolution);
    Sheet->Prepare(QStringLiteral("Print ..."), printer.pageLayout().pageSize().id());
    ShowModal(*Sheet);
    if (Sheet->result() != QDialog::Accepted) return;
    const SheetOptions options = Sheet->Options();
    printer.setPageLayout(SheetPageLayout(options));
    printer.setDocName(IsSet(project.BoardTitle) ? project.BoardTitle : QStringLiteral("Kelvrin"));
    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this, &options, &preview](QPrinter* target) { PaintSheetOn(*target, options, &preview); });
    ShowModal(preview);
}

void frmMain::mnu_ExportPDF_Click() {
    Sheet->Prepare(QStringLiteral("Export ..."), LocaleSheetPaper());
    ShowModal(*Sheet);
    if (Sheet->result() != QDialog::Accepted) return;
    FileRequest request;
    request.title = QStringLiteral("Export As PDF ...");
    request.filter = QStringLiteral("PDF (*.pdf)|*.pdf");
    request.fileName = SheetPdfName();
    QString path = prompts.AskSaveFile(request);
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".pdf");

    setCursor(Qt::WaitCursor);
    SheetResult result;
    {
        ProgressWindow progress(this, project, QStringLiteral("Writing the PDF ..."), true);
        result = WriteSheetPdf(path, project, Sheet->Options(), progress.CancellableCallback());
    }
    unsetCursor();
    if (!result.error.isEmpty()) {
        prompts.Message(QStringLiteral("The PDF was not written: %1.").arg(result.error),
                        MsgIcon::Exclamation, QStringLiteral("Kelvrin"));
    } else if (result.complete && !result.missing.isEmpty()) {
        QStringList panes;
        for (int pane : result.missing)
            panes << QString::number(pane);
        prompts.Message(
            QStringLiteral("The PDF was written. These panes' pictures could not be read and show "
                           "\"picture missing\": %1.")
                .arg(panes.join(QStringLiteral(", "))),
            MsgIcon::Information, QStringLiteral("Kelvrin"));
    }
}
