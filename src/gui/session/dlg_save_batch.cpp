#include "gui/session/dlg_save_batch.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace halvo::gui {

DlgSaveBatch::DlgSaveBatch(const QString& directory, const QString& initialName, QWidget* parent)
    : QDialog(parent), files_(new QListWidget(this)), name_(new QLineEdit(this)) {
    setObjectName(QStringLiteral("DLG_Save_batch"));
    setWindowTitle(tr("Save batch file"));
    files_->setObjectName(QStringLiteral("fileList"));
    name_->setObjectName(QStringLiteral("nameBox"));

    auto* where = new QLabel(directory.isEmpty() ? tr("(no working directory)") : directory, this);
    where->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(where);
    layout->addWidget(files_);
    layout->addWidget(new QLabel(tr("File name:"), this));
    layout->addWidget(name_);
    layout->addWidget(buttons);

    connect(files_, &QListWidget::currentTextChanged, name_, &QLineEdit::setText);
    connect(files_, &QListWidget::itemDoubleClicked, this, [this] {
        if (ok_->isEnabled()) accept();
    });
    connect(name_, &QLineEdit::textChanged, this, [this](const QString& text) { ok_->setEnabled(!text.trimmed().isEmpty()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    fillFiles(directory);
    name_->setText(initialName);
    ok_->setEnabled(!initialName.trimmed().isEmpty());
    name_->setFocus();
    resize(360, 320);
}

QString DlgSaveBatch::name() const { return name_->text().trimmed(); }

void DlgSaveBatch::fillFiles(const QString& directory) {
    if (directory.isEmpty()) return;
    QStringList names;
    for (const QString& file : QDir(directory).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase))
        if (file.endsWith(QLatin1String(".spc"), Qt::CaseInsensitive)) names.push_back(file);
    files_->addItems(names);
}

}  // namespace halvo::gui
