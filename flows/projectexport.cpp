#include "flows/projectexport.h"

#include "export/htmlwords.h"
#include "model/prompts.h"

#include <QImage>

namespace {
// Without a window, the export's messages are kept rather than shown.
class FailureCollector : public Prompts {
public:
    QString first;
    void Message(const QString& text, MsgIcon, const QString&) override {
        if (first.isEmpty()) first = text;
    }
    QString AskOpenFile(const FileRequest&) override { return {}; }
    QString AskSaveFile(const FileRequest&) override { return {}; }
};
} // namespace

ProjectExport ExportProject(Project& project, const HtmlExportOptions& options, const ExportTarget& target,
                            const std::function<void(int pane, int last)>& progress) {
    for (int id = 101; id <= 130; ++id)
        project.HtmlWords[static_cast<size_t>(id - 100)] = LoadResString(id);
    ProjectExport result;
    WebpageState state;
    result.pages = ExportWebpages(project, options, project.BoardCount, project.GridSide, target.Folder,
                                  target.Stem, state);
    QImage canvas;
    FailureCollector failures;
    result.done = ExportPanePictures(project, project.BoardCount, project.GridSide, target.Folder, canvas,
                                     failures, &result.pictures, progress);
    result.failure = failures.first;
    return result;
}
