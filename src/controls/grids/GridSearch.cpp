#include "controls/grids/GridSearch.h"

#include "controls/forms/formControls.h"
#include "controls/grids/DataGrid.h"
#include "controls/grids/RecordsetModel.h"
#include "platform/errorTraps.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimerEvent>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int turnMilliseconds = 8;
constexpr int fieldWidth = 180;

} // namespace

GridSearch::GridSearch(DataGrid &grid)
    : QFrame(grid.parentWidget() ? grid.parentWidget() : &grid)
    , m_grid(grid)
    , txtGridFind(named(new QLineEdit(this), u"txtGridFind"_s))
    , chkGridMatchCase(named(new QCheckBox(u"Match &case"_s, this), u"chkGridMatchCase"_s))
    , lblGridNote(named(new QLabel(this), u"lblGridNote"_s))
{
    setObjectName(u"GridSearch"_s);
    setAccessibleName(tr("Find in the rows"));
    setCursor(Qt::ArrowCursor);
    createControls();
    m_grid.installEventFilter(this);
    hide();
}

void GridSearch::createControls()
{
    txtGridFind->setAccessibleName(tr("Find what"));
    txtGridFind->setPlaceholderText(u"Find in these rows"_s);
    txtGridFind->setFixedWidth(fieldWidth);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 0, 0);
    layout->addWidget(lblGridNote);
    layout->addWidget(txtGridFind);
    const auto addButton = [&](const QString &name, const QString &what, QChar sign) {
        auto *button = named(new QToolButton(this), name);
        button->setText(sign);
        button->setAutoRaise(true);
        button->setToolTip(what);
        button->setAccessibleName(what);
        layout->addWidget(button);
        return button;
    };
    connect(addButton(u"cmdGridPrevious"_s, u"Find Previous (Shift+F3)"_s, QChar(0x2191)),
            &QToolButton::clicked, this, [this] { find(Direction::Backward); });
    connect(addButton(u"cmdGridNext"_s, u"Find Next (F3)"_s, QChar(0x2193)), &QToolButton::clicked,
            this, [this] { find(Direction::Forward); });
    layout->addWidget(chkGridMatchCase);
    connect(addButton(u"cmdGridFindClose"_s, u"Close (Esc)"_s, QChar(0x2715)),
            &QToolButton::clicked, this, &GridSearch::closeBar);
    connect(txtGridFind, &QLineEdit::textChanged, this, [this] { stop({}); });
    connect(chkGridMatchCase, &QCheckBox::toggled, this, [this] { stop({}); });
}

void GridSearch::showBar()
{
    show();
    place();
    raise();
    txtGridFind->setFocus(Qt::ShortcutFocusReason);
    txtGridFind->selectAll();
}

void GridSearch::closeBar()
{
    stop({});
    hide();
    m_grid.setFocus(Qt::OtherFocusReason);
}

/// In the row of the buttons above the grid, which are at its left, so that no cell is covered.
void GridSearch::place()
{
    if (isHidden())
        return;
    const QPoint corner = parentWidget() == &m_grid ? QPoint() : m_grid.pos();
    const QSize size = sizeHint().boundedTo(QSize(m_grid.width(), sizeHint().height()));
    setAutoFillBackground(parentWidget() == &m_grid || size.width() > m_grid.width() / 2);
    setGeometry(corner.x() + m_grid.width() - size.width(), std::max(0, corner.y() - size.height()),
                size.width(), size.height());
}

bool GridSearch::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        place();
    return false;
}

bool GridSearch::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest)
        place();
    // The frame's menu has this key for the editor.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent *>(event)->matches(QKeySequence::Find))
        event->accept();
    return QFrame::event(event);
}

bool GridSearch::takeKey(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_F3 || (event.modifiers() & ~Qt::ShiftModifier))
        return false;
    find(event.modifiers() ? Direction::Backward : Direction::Forward);
    return true;
}

void GridSearch::keyPressEvent(QKeyEvent *event)
{
    if (takeKey(*event))
        return;
    if (isEnterPress(*event))
        find(event->modifiers() & Qt::ShiftModifier ? Direction::Backward : Direction::Forward);
    else if (event->key() == Qt::Key_Escape)
        closeBar();
    else if (event->matches(QKeySequence::Find))
        showBar();
    else
        QFrame::keyPressEvent(event);
}

void GridSearch::find(Direction direction)
{
    if (txtGridFind->text().isEmpty())
        return showBar();
    stop({});
    m_recordset = m_grid.dataSource();
    m_rows = m_grid.model()->rowCount();
    if (m_rows == 0)
        return stop(u"No rows"_s);
    m_search = RowSearch(txtGridFind->text(),
                         chkGridMatchCase->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive);
    m_direction = direction;
    const bool forward = direction == Direction::Forward;
    const QModelIndex current = m_grid.currentIndex();
    m_row = std::max(current.row(), 0);
    m_started = current.column();
    m_first = forward ? m_started + 1 : 0;
    m_last = forward ? m_grid.model()->columnCount() - 1 : m_started - 1;
    m_left = m_rows;
    m_wrapped = false;
    m_turns.start(0, this);
    searchOneTurn();
    if (isSearching())
        lblGridNote->setText(u"Searching…"_s);
}

void GridSearch::stop(const QString &note)
{
    m_turns.stop();
    m_recordset.reset();
    lblGridNote->setText(note);
}

void GridSearch::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_turns.timerId())
        searchOneTurn();
}

/// Whatever runs between two turns may bring other rows or take these.
bool GridSearch::isStillThere() const
{
    return m_recordset && m_recordset == m_grid.dataSource() &&
           m_recordset->State() == adStateOpen && m_grid.model()->rowCount() >= m_rows;
}

void GridSearch::searchOneTurn()
{
    QElapsedTimer turn;
    turn.start();
    const bool read =
        isStillThere() && ignoreErrors([&] {
            constexpr int rowsBetweenLooks = 32;
            for (int looked = 1; m_left >= 0; ++looked) {
                if (const int column = findInRow(); column >= 0) {
                    const QModelIndex found = m_grid.model()->index(m_row, column);
                    m_grid.setCurrentIndex(found);
                    return stop(m_wrapped ? u"Went on at the other end"_s : QString());
                }
                goToNextRow();
                if (looked % rowsBetweenLooks == 0 && turn.hasExpired(turnMilliseconds))
                    return;
            }
            stop(u"Not found"_s);
        });
    if (!read)
        stop({});
}

int GridSearch::findInRow()
{
    const int row = m_grid.recordsetModel().recordsetRow(m_row);
    return m_search.field(*m_recordset, row, m_first, m_last, m_direction == Direction::Forward);
}

void GridSearch::goToNextRow()
{
    const bool forward = m_direction == Direction::Forward;
    const int next = m_row + (forward ? 1 : -1);
    m_row = next < 0 ? m_rows - 1 : next % m_rows;
    m_wrapped = m_wrapped || m_row != next;
    --m_left;
    m_first = 0;
    m_last = m_grid.model()->columnCount() - 1;
    // Back in the row that it began with: what was left out of it.
    if (m_left == 0)
        (forward ? m_last : m_first) = forward ? m_started : std::max(m_started, 0);
}
