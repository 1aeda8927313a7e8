#pragma once

#include "zenu/ZenuExport.h"
#include "zenu/command/KCommandUpdate.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include <map>

class QAction;
class QMenu;
class QSignalMapper;

namespace zenu {

/// What SAction::kind says. Any other number ends a table, too.
enum EActionKind
{
    ActionPlain = 0,
    ActionToggle = 1,
    ActionsEnd = 2
};

/// One action in a static table. A null text or pixmap and a zero accelerator leave that property
/// of the action as it is. A record of nothing ends the table.
struct SAction
{
    int kind = ActionsEnd;                 ///< of EActionKind
    unsigned int id = 0;                   ///< the command id
    char const * text = nullptr;           ///< also the key of the icon in QPixmapCache
    char const * menuText = nullptr;       ///< the text in menus, if it is another one
    char const * toolTip = nullptr;        ///< the text for it if null
    char const * statusTip = nullptr;      ///< what a status bar shows
    char const * whatsThis = nullptr;      ///< context help
    char const * const * pixmap = nullptr; ///< the icon, as XPM
    int accel = 0;                         ///< as of QKeyCombination::toCombined
};

/// Binds actions to one command handler: what is activated becomes a `cmd`, and the enabled and
/// checked states of all actions follow what the handler answers to `update`. Nobody pushes states.
///
/// All actions are brought up to date after each command and before a menu opens that was given to
/// `autoUpdateMenu`. Besides, a timer of 3 milliseconds asks for one action a tick, in turn and in
/// ascending id, for as long as the manager lives. A tick allocates nothing.
///
/// Actions belong to their QObject parents. One that is deleted by someone else leaves the manager
/// by itself. `cmd` and `update` may delete actions or the manager, and add actions or clear them
/// all. An `updateAll` within `update` waits until that has answered. The manager has no parent.
class ZENU_EXPORT KActionManager : public QObject
{
    Q_OBJECT
public:
    /// `parent` becomes the parent of the actions that are made here; with null it is the manager.
    /// `handler` stays the caller's, is not null, and is valid as long as the manager lives.
    KActionManager(QObject * parent, ICommandHandler * handler);
    /// Deletes no action but those that are its children.
    ~KActionManager() override;

    /// Enters an action of the caller's under `id`; a null one is skipped. An action that stood
    /// there before is not updated any more, but still sends the command. An action has one id: the
    /// last it was entered under is the one that it sends.
    void addAction(QAction * action, unsigned int id);
    /// Makes and enters the actions of a table, which is not kept; null has none. Texts are Latin-1
    /// and go through QApplication::translate with `context`. A text without a menu text stands in
    /// menus too. The tool tip ends with the accelerator's name in parentheses. Records of one text
    /// share the first one's icon. An accelerator works once the action is in a menu, in a tool bar
    /// or among the actions of a widget.
    void addActions(SAction const * table, char const * context);

    /// The action of `id`, or the empty action.
    QAction * getAction(unsigned int id) const;
    /// A nameless action that stands for none and stays enabled, so that callers need no test. Its
    /// parent is that given to the constructor; it belongs to the manager if that is null.
    QAction * getEmptyAction() const;

    /// The number of ids that have an action.
    int size() const;
    /// Deletes the actions of all ids, whoever made them.
    void clearAll();

    /// While blocked all actions are disabled and unchecked, and the handler is not asked. Brings
    /// all of them up to date.
    void block(bool blocked);
    bool isBlocked() const { return m_blocked; }

    /// Brings all actions up to date before `menu` opens; null is skipped.
    void autoUpdateMenu(QMenu * menu);

    /// The object itself, for connecting.
    QObject * qObject() { return this; }

public Q_SLOTS:
    /// Brings all actions up to date and sets only what differs.
    void updateAll();

private Q_SLOTS:
    void mapped(int id);
    void updateSingle();

private:
    using Actions = std::map<unsigned int, QPointer<QAction>>;

    QObject * parentOfNewActions();
    void makeAction(SAction const & record, char const * context);
    QPointer<QAction> registeredAction(unsigned int id) const;
    void walkOverAll();
    KCommandUpdate ask(unsigned int id);
    void forgetDeletedActions();

    QPointer<QObject> m_parent; // the manager itself instead of null
    ICommandHandler * m_handler;
    QSignalMapper * m_mapper;
    mutable QPointer<QAction> m_emptyAction;
    Actions m_actions;
    Actions::iterator m_cursor; // whose turn it is; the end when there are no actions
    QTimer m_timer;
    QPointer<KActionManager> m_self; // made once, so that no tick allocates one
    bool m_blocked = false;
    bool m_isMapping = false;
    bool m_isAsking = false; // within `update` of the handler
    bool m_isCalledWhileAsking = false;
};

} // namespace zenu
