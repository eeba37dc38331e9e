// Drawing vkscontrol from the session: every control shows the model's list or label as it stands.
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QSignalBlocker>

#include "gui/app/qt_text.h"
#include "gui/session/vks_control.h"
#include "gui/widgets/click_label.h"
#include "gui/widgets/directory_box.h"
#include "gui/widgets/text_list_view.h"

namespace halvo::gui {

void VksControl::refresh() {
    const MainLists& l = s_.lists;
    ShowTextList(Combo1_, l.Combo1);
    {
        const QSignalBlocker block(VScroll1_);
        VScroll1_->setRange(0, l.VScroll1Max);
        VScroll1_->setValue(l.VScroll1Value);
    }
    ShowTextList(List1_, l.List1);
    ShowTextList(List2_, l.List2);
    ShowTextList(List3_, l.List3);
    ShowTextList(List4_, l.List4);
    ShowTextList(List5_, l.List5);
    List6_->setPath(ToQt(l.List6));
    ShowTextList(Combo3_, l.Combo3);

    Label12_->setText(ToQtLabel(l.Label12));
    Label13_->setText(ToQtLabel(l.Label13));
    Label13_->setToolTip(ToQt(l.BatchToolTip));
    Label14_->setText(ToQt(l.Label14));
    Label14_->setVisible(!l.Label14.empty());
    Label15_->setText(ToQt(l.Label15));
    Label15_->setToolTip(ToQt(l.Label15ToolTip));
    Label19_->setText(ToQt(l.Label19));
    Label19_->setStyleSheet(l.Label19Marked ? QStringLiteral("color: white; background: #b22222; font-weight: bold;")
                                            : QString());

    setWindowTitle(ToQt(s_.MainTitle));
    emit refreshed();
}

}  // namespace halvo::gui
