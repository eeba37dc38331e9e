#include "gui/widgets/text_list_view.h"

#include <QSignalBlocker>

#include "gui/app/qt_text.h"

namespace halvo::gui {
namespace {

QStringList Items(const TextList& model) {
    QStringList items;
    items.reserve(qsizetype(model.items.size()));
    for (const auto& item : model.items) items.push_back(ToQt(item));
    return items;
}

}  // namespace

void ShowTextList(QListWidget* view, const TextList& model) {
    const QSignalBlocker block(view);
    const QStringList items = Items(model);
    bool same = view->count() == items.size();
    for (int i = 0; same && i < items.size(); ++i) same = view->item(i)->text() == items[i];
    if (!same) {
        view->clear();
        view->addItems(items);
    }
    view->setCurrentRow(model.index >= 0 && model.index < view->count() ? model.index : -1);
}

void ShowTextList(QComboBox* view, const TextList& model) {
    const QSignalBlocker block(view);
    const QStringList items = Items(model);
    bool same = view->count() == items.size();
    for (int i = 0; same && i < items.size(); ++i) same = view->itemText(i) == items[i];
    if (!same) {
        view->clear();
        view->addItems(items);
    }
    view->setCurrentIndex(model.index >= 0 && model.index < view->count() ? model.index : -1);
}

void FollowSelection(QListWidget* view, TextList& model) {
    QObject::connect(view, &QListWidget::currentRowChanged, view, [&model](int row) { model.index = row; });
}

}  // namespace halvo::gui
