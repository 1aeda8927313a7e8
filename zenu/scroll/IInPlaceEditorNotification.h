#pragma once

#include "zenu/ZenuExport.h"

namespace zenu {

/// What a KInPlaceEditor or KInPlaceCombo reports to the client that started the edit. Every
/// operation may be left out. The object belongs to the client and must live until the edit has
/// ended. An operation may delete the editor, and may start a new edit, but see `completeEditing`.
class ZENU_EXPORT IInPlaceEditorNotification
{
public:
    IInPlaceEditorNotification() = default;
    virtual ~IInPlaceEditorNotification();

    /// The edit has ended, and its text stands. `text` is Latin-1, never null, and valid during the
    /// call only. The editor is still shown and hides itself afterwards. It does that also when a
    /// new edit was started from within: the new one then is hidden too, and ends as soon as the
    /// focus leaves it. So start the next edit later, from the event loop.
    virtual void completeEditing(char const * text);

    /// The edit was cancelled. Comes from KInPlaceEditor only: a cancelled KInPlaceCombo is silent.
    virtual void cancelEditing() {}

    /// The user has pressed Insert in this editor, and all editors of the process type over now, or
    /// insert again. Comes from KInPlaceEditor only.
    virtual void editingModeChanged(bool overwrite);

protected:
    IInPlaceEditorNotification(IInPlaceEditorNotification const &) = default;
    IInPlaceEditorNotification & operator=(IInPlaceEditorNotification const &) = default;
};

} // namespace zenu
