#include "dialogs/qtprompts.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>

void QtPrompts::Message(const QString& text, MsgIcon icon, const QString& title) {
    QMessageBox box(parent_);
    box.setWindowTitle(title);
    box.setText(text);
    switch (icon) {
    case MsgIcon::Information: box.setIcon(QMessageBox::Information); break;
    case MsgIcon::Exclamation: box.setIcon(QMessageBox::Warning); break;
    case MsgIcon::Critical: box.setIcon(QMessageBox::Critical); break;
    case MsgIcon::None: break;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

QString QtPrompts::ask(const FileRequest& request, bool save) {
    QFileDialog dialog(parent_, request.title);
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    const QStringList filters = DialogFilters(request.filter);
    dialog.setNameFilters(filters);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
        dialog.selectNameFilter(filters[request.filterIndex - 1]);
    if (!request.folder.isEmpty()) dialog.setDirectory(request.folder);
    if (!request.fileName.isEmpty()) dialog.selectFile(request.fileName);
    // A name typed without its extension gets the one of the chosen filter ("trip" saves trip.kv1).
    const QString pattern = request.filter.section(QLatin1Char('|'), 1, 1).section(QLatin1Char(';'), 0, 0);
    if (save && pattern.startsWith(QStringLiteral("*."))) dialog.setDefaultSuffix(pattern.mid(2));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return QDir::cleanPath(dialog.selectedFiles().first());
}

QString QtPrompts::AskOpenFile(const FileRequest& request) { return ask(request, false); }
QString QtPrompts::AskSaveFile(const FileRequest& request) { return ask(request, true); }
