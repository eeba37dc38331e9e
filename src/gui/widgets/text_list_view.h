#pragma once
// List boxes and drop-downs as views of the core's TextList: the items and the selection are redrawn
// from the model, and a selection made by the user is written back to it.
#include <QComboBox>
#include <QListWidget>

#include "session/session.h"

namespace halvo::gui {

void ShowTextList(QListWidget* view, const TextList& model);
void ShowTextList(QComboBox* view, const TextList& model);

// Keeps model.index on the row the user selects. `model` must outlive `view`.
void FollowSelection(QListWidget* view, TextList& model);

}  // namespace halvo::gui
