#include "zenu/command/KActionManager.h"

#include "zenu/overlay/NarrowText.h"

#include <QtCore/QSignalMapper>
#include <QtGui/QAction>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

#include <algorithm>
#include <utility>

namespace zenu {

namespace {

constexpr int tickMilliseconds = 3;

// The toolkit takes source texts as UTF-8, the library's are Latin-1.
QString translated(char const * context, char const * text)
{
    return QApplication::translate(context, chars2qstring(text).toUtf8().constData());
}

// A record without a text has no key, and no icon to share.
QPixmap iconOf(SAction const & record)
{
    QString const key = chars2qstring(record.text);
    QPixmap icon;
    if (key.isEmpty() || !QPixmapCache::find(key, &icon)) {
        icon = QPixmap(record.pixmap);
        if (!key.isEmpty()) {
            QPixmapCache::insert(key, icon);
        }
    }
    return icon;
}

void setTexts(QAction & action, SAction const & record, char const * context)
{
    if (record.text) {
        QString const text = translated(context, record.text);
        action.setIconText(text);
        action.setText(text);
    }
    if (record.menuText) {
        action.setText(translated(context, record.menuText));
    }
    if (record.statusTip) {
        action.setStatusTip(translated(context, record.statusTip));
    }
    if (record.whatsThis) {
        action.setWhatsThis(translated(context, record.whatsThis));
    }
}

// Reads the text and the accelerator of the action.
void setTip(QAction & action, SAction const & record, char const * context)
{
    QString tip = record.toolTip ? translated(context, record.toolTip) : action.iconText();
    if (!action.shortcut().isEmpty()) {
        tip += QStringLiteral(" (%1)").arg(action.shortcut().toString(QKeySequence::NativeText));
    }
    action.setToolTip(tip);
}

// A slot connected to a change of the action may delete it.
void setState(QPointer<QAction> const & action, KCommandUpdate const & state)
{
    if (action) {
        action->setEnabled(state.isEnabled());
    }
    if (action && action->isCheckable()) {
        action->setChecked(state.isChecked());
    }
}

void setWhatDiffers(QPointer<QAction> const & action, KCommandUpdate const & state)
{
    if (action && action->isEnabled() != state.isEnabled()) {
        action->setEnabled(state.isEnabled());
    }
    if (action && action->isCheckable() && action->isChecked() != state.isChecked()) {
        action->setChecked(state.isChecked());
    }
}

} // namespace

KActionManager::KActionManager(QObject * parent, ICommandHandler * handler)
    : m_parent(parent)
    , m_handler(handler)
    , m_mapper(new QSignalMapper(this))
    , m_emptyAction(new QAction(parent))
    , m_cursor(m_actions.end())
    , m_self(this)
{
    connect(m_mapper, &QSignalMapper::mappedInt, this, &KActionManager::mapped);
    connect(&m_timer, &QTimer::timeout, this, &KActionManager::updateSingle);
    m_timer.start(tickMilliseconds);
}

KActionManager::~KActionManager()
{
    if (m_isMapping) {
        m_mapper->setParent(nullptr); // it still runs, and `mapped` disposes of it
    }
    if (m_emptyAction && !m_emptyAction->parent()) {
        delete m_emptyAction;
    }
}

void KActionManager::addAction(QAction * action, unsigned int id)
{
    if (!action) {
        return;
    }
    m_actions[id] = action;
    m_cursor = m_actions.begin();
    m_mapper->setMapping(action, static_cast<int>(id));
    // An action that is entered again must not send its command twice.
    connect(action, &QAction::triggered, m_mapper, qOverload<>(&QSignalMapper::map),
            Qt::UniqueConnection);
    connect(action, &QObject::destroyed, this, &KActionManager::forgetDeletedActions,
            Qt::UniqueConnection);
}

void KActionManager::addActions(SAction const * table, char const * context)
{
    for (; table && (table->kind == ActionPlain || table->kind == ActionToggle); ++table) {
        makeAction(*table, context);
    }
}

QAction * KActionManager::getAction(unsigned int id) const
{
    QAction * const action = registeredAction(id);
    return action ? action : getEmptyAction();
}

// It may have gone with its parent.
QAction * KActionManager::getEmptyAction() const
{
    if (!m_emptyAction) {
        m_emptyAction = new QAction(m_parent);
    }
    return m_emptyAction;
}

// Without those that were deleted after all their connections had been cut.
int KActionManager::size() const
{
    return static_cast<int>(std::ranges::count_if(
        m_actions, [](auto const & entry) { return !entry.second.isNull(); }));
}

// What listens to the end of an action finds the manager empty already.
void KActionManager::clearAll()
{
    Actions const actions = std::exchange(m_actions, Actions());
    m_cursor = m_actions.end();
    for (auto const & [id, action] : actions) {
        delete action;
    }
}

void KActionManager::block(bool blocked)
{
    m_blocked = blocked;
    updateAll();
}

void KActionManager::autoUpdateMenu(QMenu * menu)
{
    if (menu) {
        connect(menu, &QMenu::aboutToShow, this, &KActionManager::updateAll, Qt::UniqueConnection);
    }
}

// An `update` that calls this would be asked again without end, so its call waits until it has
// answered. Twice at most, since it may do so each time. What is blocked asks nobody and is at
// once.
void KActionManager::updateAll()
{
    if (m_isAsking && !m_blocked) {
        m_isCalledWhileAsking = true;
        return;
    }
    QPointer<KActionManager> const self = m_self;
    for (int walks = 0; walks < 2; ++walks) {
        m_isCalledWhileAsking = false;
        walkOverAll();
        if (!self || !m_isCalledWhileAsking) {
            return;
        }
    }
    m_isCalledWhileAsking = false;
}

// The command may delete the manager, but not the mapper, which reads its tables once more when
// this returns. A manager that dies in an event loop within the command is disposed of by the
// outermost call, since an inner one is still inside the mapper of the outer.
void KActionManager::mapped(int id)
{
    QPointer<KActionManager> const self = m_self;
    QSignalMapper * const mapper = m_mapper;
    bool const isOutermost = !std::exchange(m_isMapping, true);
    m_handler->cmd(static_cast<unsigned int>(id));
    if (self) {
        updateAll();
    }
    if (self) {
        m_isMapping = !isOutermost;
    } else if (isOutermost) {
        mapper->deleteLater();
    }
}

// The cursor moves on first, so that it is right whatever the handler does to the actions.
void KActionManager::updateSingle()
{
    if (m_actions.empty()) {
        return;
    }
    unsigned int const id = m_cursor->first;
    if (++m_cursor == m_actions.end()) {
        m_cursor = m_actions.begin();
    }
    QPointer<KActionManager> const self = m_self;
    KCommandUpdate const state = ask(id);
    if (self) {
        setState(registeredAction(id), state);
    }
    if (self && m_isCalledWhileAsking) {
        updateAll();
    }
}

QObject * KActionManager::parentOfNewActions()
{
    return m_parent ? m_parent.data() : this;
}

void KActionManager::makeAction(SAction const & record, char const * context)
{
    auto * const action = new QAction(parentOfNewActions());
    action->setCheckable(record.kind == ActionToggle);
    setTexts(*action, record, context);
    if (record.pixmap) {
        action->setIcon(QIcon(iconOf(record)));
    }
    if (record.accel != 0) {
        action->setShortcut(QKeySequence(QKeyCombination::fromCombined(record.accel)));
    }
    setTip(*action, record, context);
    addAction(action, record.id);
}

QPointer<QAction> KActionManager::registeredAction(unsigned int id) const
{
    auto const entry = m_actions.find(id);
    return entry == m_actions.end() ? QPointer<QAction>() : entry->second;
}

// The handler may change the actions or delete the manager, so each step finds its place anew.
void KActionManager::walkOverAll()
{
    QPointer<KActionManager> const self = m_self;
    for (auto entry = m_actions.begin(); entry != m_actions.end();) {
        unsigned int const id = entry->first;
        KCommandUpdate const state = ask(id);
        if (self) {
            setWhatDiffers(registeredAction(id), state);
        }
        if (!self) {
            return;
        }
        entry = m_actions.upper_bound(id);
    }
}

// The answer of `update` is of no interest: a command that nobody knows stays enabled.
KCommandUpdate KActionManager::ask(unsigned int id)
{
    QPointer<KActionManager> const self = m_self;
    KCommandUpdate state;
    if (!m_blocked) {
        bool const wasAsking = std::exchange(m_isAsking, true);
        m_handler->update(id, &state);
        if (self) {
            m_isAsking = wasAsking;
        }
    }
    // A handler that blocks while it is asked overrules its own answer.
    if (self && m_blocked) {
        state = KCommandUpdate();
        state.setEnabled(false);
    }
    return state;
}

// Comes when an action is deleted, whose pointer is null by now.
void KActionManager::forgetDeletedActions()
{
    for (auto entry = m_actions.begin(); entry != m_actions.end();) {
        bool const isDeleted = entry->second.isNull();
        bool const hasTheCursor = entry == m_cursor;
        entry = isDeleted ? m_actions.erase(entry) : std::next(entry);
        if (isDeleted && hasTheCursor) {
            m_cursor = entry;
        }
    }
    if (m_cursor == m_actions.end()) {
        m_cursor = m_actions.begin();
    }
}

} // namespace zenu
