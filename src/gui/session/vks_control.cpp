#include "gui/session/vks_control.h"

#include <QAction>
#include <QComboBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QVBoxLayout>

#include "gui/session/vks_control_texts.h"
#include "gui/widgets/click_label.h"
#include "gui/widgets/directory_box.h"
#include "gui/widgets/text_list_view.h"
#include "session/main_view.h"

namespace halvo::gui {
namespace {

template <typename W>
W* Named(W* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QGroupBox* Framed(const QString& caption, QWidget* content, QWidget* parent) {
    auto* box = new QGroupBox(caption, parent);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->addWidget(content);
    return box;
}

}  // namespace

VksControl::VksControl(Session& session, QWidget* parent) : QWidget(parent), s_(session) {
    setObjectName(QStringLiteral("vkscontrol"));
    buildControls();
    buildLayout();
    buildMenu();
    connectControls();
    refresh();
}

void VksControl::buildControls() {
    Combo1_ = Named(new QComboBox(this), "Combo1");
    Combo1_->setToolTip(QString::fromLatin1(texts::Combo1ToolTip));
    Combo1_->setMinimumContentsLength(4);
    VScroll1_ = Named(new QScrollBar(Qt::Vertical, this), "VScroll1");
    VScroll1_->setSingleStep(1);
    VScroll1_->setPageStep(1);
    VScroll1_->setFixedHeight(Combo1_->sizeHint().height() + 12);

    List1_ = Named(new QListWidget(this), "List1");
    List2_ = Named(new QListWidget(this), "List2");
    List3_ = Named(new QListWidget(this), "List3");
    List4_ = Named(new QListWidget(this), "List4");
    List5_ = Named(new QListWidget(this), "List5");
    List6_ = Named(new DirectoryBox(this), "List6");
    List4_->setFixedHeight(List4_->fontMetrics().height() * 2 + 8);

    // Verbosity is shown; changing it comes with the sample commands.
    Combo3_ = Named(new QComboBox(this), "Combo3");
    Combo3_->setEnabled(false);

    Label12_ = Named(new QLabel(this), "Label12");
    Label13_ = Named(new QLabel(this), "Label13");
    for (QLabel* label : {Label12_, Label13_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    }
    Label14_ = Named(new QLabel(this), "Label14");
    Label15_ = Named(new QLabel(this), "Label15");
    Label19_ = Named(new ClickLabel(this), "Label19");
    Label19_->setCursor(Qt::PointingHandCursor);
    Label19_->setFrameShape(QFrame::StyledPanel);
    Label19_->setAlignment(Qt::AlignCenter);
    Label19_->setMargin(3);
    // Wide enough for either state's text in the marked (bold) style, so that the row keeps its layout.
    QFont bold = Label19_->font();
    bold.setBold(true);
    Label19_->setMinimumWidth(QFontMetrics(bold).averageCharWidth() * 22);
}

void VksControl::buildLayout() {
    auto* sample = new QHBoxLayout;
    sample->setSpacing(4);
    sample->addWidget(new QLabel(tr("Sample"), this));
    sample->addWidget(Combo1_);
    sample->addWidget(VScroll1_);
    sample->addSpacing(12);
    sample->addWidget(Label13_, 1);

    auto* verbosity = new QVBoxLayout;
    verbosity->addWidget(Combo3_);
    verbosity->addWidget(Label15_);
    verbosity->addWidget(Label14_);
    verbosity->addStretch(1);
    auto* structure = new QGroupBox(tr("Structure"), this);
    auto* structureLayout = new QVBoxLayout(structure);
    structureLayout->setContentsMargins(6, 4, 6, 6);
    structureLayout->addWidget(List4_);
    structureLayout->addWidget(new QLabel(tr("Verbosity"), this));
    structureLayout->addLayout(verbosity);

    auto* lists = new QGridLayout;
    lists->addWidget(Framed(tr("Data files"), List1_, this), 0, 0);
    lists->addWidget(Framed(tr("Geometries"), List2_, this), 0, 1);
    lists->addWidget(structure, 0, 2);
    lists->addWidget(Framed(tr("Associations"), List3_, this), 1, 0, 1, 2);
    lists->addWidget(Framed(tr("Charges (µC)"), List5_, this), 1, 2);
    lists->setColumnStretch(0, 3);
    lists->setColumnStretch(1, 2);
    lists->setColumnStretch(2, 2);
    lists->setRowStretch(0, 1);
    lists->setRowStretch(1, 1);

    auto* bottom = new QHBoxLayout;
    auto* directory = Framed(tr("Working directory"), List6_, this);
    List6_->setFixedHeight(List6_->fontMetrics().height() * 5 + 10);
    bottom->addWidget(directory, 1);
    auto* warnings = new QVBoxLayout;
    warnings->addStretch(1);
    warnings->addWidget(Label19_);
    bottom->addLayout(warnings);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(sample);
    layout->addWidget(Label12_);
    layout->addLayout(lists, 1);
    layout->addLayout(bottom);
}

void VksControl::buildMenu() {
    batchMenu_ = new QMenu(tr("&File"), this);
    batchMenu_->setObjectName(QStringLiteral("mnuBatch"));
    auto add = [this](const char* name, const char* caption, void (VksControl::*slot)(), QKeySequence key = {}) {
        QAction* action = batchMenu_->addAction(QString::fromLatin1(caption));
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    add("mnuOpenBatch", texts::mnuOpenBatch, &VksControl::mnuOpenBatch_Click);
    add("mnuSave", texts::mnuSave, &VksControl::mnuSave_Click);
    add("mnuSaveBatch", texts::mnuSaveBatch, &VksControl::mnuSaveBatch_Click);
    batchMenu_->addSeparator();
    add("mnuNextSample", texts::mnuNextSample, &VksControl::mnuNextSample_Click, QKeySequence(Qt::CTRL | Qt::Key_N));
    add("mnuPrevSample", texts::mnuPrevSample, &VksControl::mnuPrevSample_Click, QKeySequence(Qt::CTRL | Qt::Key_P));
}

void VksControl::connectControls() {
    connect(Combo1_, &QComboBox::activated, this, [this](int index) { run([&] { Combo1_Click(s_, index); }); });
    connect(VScroll1_, &QScrollBar::valueChanged, this, [this](int value) { run([&] { VScroll1_Change(s_, value); }); });
    connect(Label19_, &ClickLabel::clicked, this, [this] { run([&] { Label19_Click(s_); }); });
    FollowSelection(List1_, s_.lists.List1);
    FollowSelection(List2_, s_.lists.List2);
    FollowSelection(List3_, s_.lists.List3);
    FollowSelection(List4_, s_.lists.List4);
    FollowSelection(List5_, s_.lists.List5);
}

}  // namespace halvo::gui
