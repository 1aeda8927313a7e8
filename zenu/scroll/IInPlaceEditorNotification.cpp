#include "zenu/scroll/IInPlaceEditorNotification.h"

namespace zenu {

IInPlaceEditorNotification::~IInPlaceEditorNotification() = default;

void IInPlaceEditorNotification::completeEditing(char const *) {}

void IInPlaceEditorNotification::editingModeChanged(bool) {}

} // namespace zenu
