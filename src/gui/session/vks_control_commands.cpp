// The batch commands of vkscontrol: each runs the core's routine, asks what the routine needs through a
// dialog, and redraws.
#include <QDir>
#include <QFileDialog>

#include "gui/app/qt_text.h"
#include "gui/session/dlg_save_batch.h"
#include "gui/session/vks_control.h"
#include "gui/session/vks_control_texts.h"
#include "gui/widgets/file_filter.h"
#include "session/batch_commands.h"
#include "session/main_view.h"

namespace halvo::gui {

void VksControl::openBatch(const QString& path) {
    run([&] { OpenBatchFile(s_, FileNameFromQt(path)); });
}

void VksControl::mnuOpenBatch_Click() {
    run([&] { halvo::mnuOpenBatch_Click(s_); });

    QFileDialog dialog(this);
    dialog.setObjectName(QStringLiteral("OpenBatchDialog"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setDirectory(s_.FilePath.empty() ? QDir::currentPath() : ToQt(s_.FilePath));
    const QStringList filters = QtNameFilters(texts::BatchFilter);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(0));
    // Batch files are found whatever the case of their extension.
    dialog.setFilter(dialog.filter() & ~QDir::CaseSensitive);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    const QString chosen = dialog.selectedFiles().front();
    if (!chosen.isEmpty()) openBatch(chosen);
}

void VksControl::mnuSave_Click() {
    run([&] {
        if (halvo::mnuSave_Click(s_) == SaveStep::AskForName) askBatchName();
    });
}

void VksControl::mnuSaveBatch_Click() {
    run([&] {
        if (halvo::mnuSaveBatch_Click(s_) == SaveStep::AskForName) askBatchName();
    });
}

void VksControl::mnuNextSample_Click() {
    run([&] { halvo::mnuNextSample_Click(s_); });
}

void VksControl::mnuPrevSample_Click() {
    run([&] { halvo::mnuPrevSample_Click(s_); });
}

void VksControl::askBatchName() {
    const QString initial = s_.BatchName.empty() ? QString() : ToQt(s_.BatchName) + QStringLiteral(".spc");
    DlgSaveBatch dialog(ToQt(s_.FilePath), initial, this);
    if (dialog.exec() == QDialog::Accepted)
        DLG_Save_batch_OK(s_, FileNameFromQt(dialog.name()));
    else
        DLG_Save_batch_Cancel(s_);
}

}  // namespace halvo::gui
