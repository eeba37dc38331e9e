// Opening and saving batches through the menus and their dialogs, and the title that says whether the
// batch is saved.
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QDialogButtonBox>

#include "halvo_fixture.h"
#include "session/batch_file.h"

namespace halvo::test {
namespace {

using Strings = QStringList;

class BatchCommands : public HalvoFixture {
protected:
    // DLG_Save_batch is answered with `name` (OK) or cancelled when `name` is empty; the files it
    // listed are kept in `listed`.
    void answerSaveDialog(const QString& name) {
        answers.onDialog("DLG_Save_batch", [this, name](QDialog* dialog) {
            auto* files = dialog->findChild<QListWidget*>("fileList");
            listed.clear();
            for (int i = 0; i < files->count(); ++i) listed << files->item(i)->text();
            if (name.isEmpty()) {
                dialog->reject();
            } else {
                dialog->findChild<QLineEdit*>("nameBox")->setText(name);
                dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
            }
            return true;
        });
    }
    QStringList listed;
};

TEST_F(BatchCommands, SaveBatchAsWritesTheNamedFileThroughTheDialog) {
    QFile::copy(file("demo.spc"), file("OTHER.SPC"));
    QFile::remove(file("rbs165.geo"));
    startWithDemo();
    answers.clear();
    answerSaveDialog("copy");
    trigger("mnuSaveBatch");

    EXPECT_EQ(answers.dialogsSeen(), Strings{"DLG_Save_batch"});
    EXPECT_EQ(listed, (Strings{"demo.spc", "OTHER.SPC"}));
    ASSERT_TRUE(QFile::exists(file("copy.spc")));
    EXPECT_TRUE(read("copy.spc").startsWith("s1rbs165.dat   10.5  rbs165  sio2si   1  \r\n"));
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - copy");
    // A missing geometry is reported, and writing goes on.
    ASSERT_FALSE(answers.boxes().empty());
    EXPECT_EQ(answers.boxes().front().title, "VKScontrol.check1 warning");
    EXPECT_TRUE(answers.boxes().front().text.startsWith("geometry file rbs165 appears not to exist"))
        << answers.boxes().front().text.toStdString();

    // The written batch reads back with its three samples.
    answers.clear();
    vks()->openBatch(file("copy.spc"));
    EXPECT_EQ(items("Combo1"), (Strings{"1", "2", "3"}));
    EXPECT_EQ(items("List1"), (Strings{"s1rbs165.dat", "s1rbs120.dat"}));
}

TEST_F(BatchCommands, CancelInTheSaveDialogWritesNothing) {
    startWithDemo();
    answerSaveDialog(QString());
    trigger("mnuSaveBatch");
    EXPECT_EQ(answers.dialogsSeen(), Strings{"DLG_Save_batch"});
    EXPECT_TRUE(session().dlg_FileName.empty());
    EXPECT_EQ(QDir(dir()).entryList({"*.spc"}, QDir::Files), Strings{"demo.spc"});
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - demo");
}

TEST_F(BatchCommands, TheTitleFollowsTheUnsavedMarkAndSaveClearsIt) {
    startWithDemo();
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - demo");
    MarkSaved(session(), false);
    trigger("mnuNextSample");  // any command redraws
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - demo - Unsaved");

    // Save with a batch name writes it back without the dialog and marks it saved.
    trigger("mnuPrevSample");
    const QByteArray before = read("demo.spc");
    trigger("mnuSave");
    EXPECT_TRUE(answers.dialogsSeen().isEmpty());
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - demo");
    EXPECT_NE(read("demo.spc"), before);  // written in the program's own spacing
    EXPECT_EQ(read("demo.spc~"), before);
}

TEST_F(BatchCommands, SaveWithoutABatchNameAsksForOne) {
    startEmpty();
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - ");
    answerSaveDialog(QString());
    session().current().Structure = "sio2si";
    trigger("mnuSave");
    EXPECT_EQ(answers.dialogsSeen(), Strings{"DLG_Save_batch"});
}

TEST_F(BatchCommands, OpenBatchFindsUpperCaseFilesAndOpensTheChosenOne) {
    QFile::rename(file("demo.spc"), file("UPPER.SPC"));
    startEmpty();

    QStringList shown;
    QString directory;
    QStringList filters;
    answers.onDialog("OpenBatchDialog", [&](QDialog* d) {
        auto* dialog = static_cast<QFileDialog*>(d);
        // The folder is read in the background: wait until it has been listed.
        auto* view = dialog->findChild<QListView*>("listView");
        auto* model = dialog->findChild<QFileSystemModel*>();
        if (!view || !model) return false;
        const QModelIndex root = view->rootIndex();
        if (model->rowCount(root) == 0 && shown.size() < 200) {
            shown << QString();  // counts the waits
            return false;
        }
        shown.clear();
        for (int i = 0; i < model->rowCount(root); ++i) shown << model->index(i, 0, root).data().toString();
        directory = dialog->directory().absolutePath();
        filters = dialog->nameFilters();
        // Typed as a user does (selectFile leaves a focused name box alone).
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText("UPPER.SPC");
        d->accept();
        return true;
    });
    trigger("mnuOpenBatch");

    EXPECT_EQ(directory, QDir(dir()).absolutePath());
    EXPECT_EQ(filters, Strings{"VKS files (*.spc)"});
    EXPECT_EQ(shown, Strings{"UPPER.SPC"});
    EXPECT_EQ(items("Combo1"), (Strings{"1", "2", "3"}));
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - UPPER");
    EXPECT_EQ(items("List6").back().trimmed(), QDir(dir()).dirName());
}

TEST_F(BatchCommands, OpenBatchCancelledLeavesAnEmptyBatch) {
    startWithDemo();
    answers.onDialog("OpenBatchDialog", [](QDialog* dialog) {
        dialog->reject();
        return true;
    });
    trigger("mnuOpenBatch");
    EXPECT_EQ(items("Combo1"), Strings{"1"});
    EXPECT_TRUE(items("List1").isEmpty());
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - ");
}

}  // namespace
}  // namespace halvo::test
