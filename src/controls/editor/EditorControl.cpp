#include "controls/editor/EditorControl.h"

#include "controls/editor/EditorAccessible.h"
#include "controls/editor/EditorChanges.h"
#include "controls/editor/EditorFindDialog.h"
#include "controls/editor/EditorMarks.h"
#include "controls/editor/EditorPageSetup.h"
#include "controls/editor/EditorText.h"
#include "controls/editor/SyntaxColouring.h"
#include "controls/editor/editorKeys.h"
#include "platform/files.h"

#include <Qsci/qscicommandset.h>

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int charactersPerTab = 4;
constexpr auto lineEnd = "\r\n";

/// The local file that is being dragged; an empty text when it is something else.
QString draggedFile(const QMimeData *data)
{
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return {};
}

} // namespace

EditorControl::EditorControl(QWidget *parent)
    : QsciScintilla(parent)
    , m_positions(*this)
    , m_formats(*this)
    , m_colouring(std::make_unique<SyntaxColouring>(*this, m_formats))
    , m_changes(std::make_unique<EditorChanges>(*this, *m_colouring, m_formats))
    , m_text(std::make_unique<EditorText>(*this, m_positions, m_formats, *m_changes))
    , m_look(std::make_unique<EditorLook>(*this, *m_colouring, m_formats))
    , m_marks(std::make_unique<EditorMarks>(*this))
    , m_pageSetup(std::make_unique<EditorPageSetup>(*this))
{
    m_formats.setFontsChanged([this](long begin, long end) {
        m_look->apply();
        m_colouring->colourAgain(begin, end);
    });
    installEditorAccessible();
    setUpEditing();
    setUpKeys();
    m_look->apply();
    m_look->fitLineNumbers();
}

EditorControl::~EditorControl() = default;

void EditorControl::setUpEditing()
{
    setUtf8(true);
    setEolMode(EolWindows);
    SendScintilla(SCI_SETPASTECONVERTENDINGS, 1L);
    setTabWidth(charactersPerTab);
    setIndentationsUseTabs(true);
    setWrapMode(WrapNone);
    SendScintilla(SCI_SETADDITIONALSELECTIONTYPING, 1L);
    SendScintilla(SCI_SETSCROLLWIDTH, 1L);
    SendScintilla(SCI_SETSCROLLWIDTHTRACKING, 1L);
    setAcceptDrops(true);

    connect(this, &QsciScintillaBase::SCN_STYLENEEDED, this,
            [this](int position) { m_colouring->colourTo(position); });
    // The base class would count the caret's column from the line's start at every key.
    disconnect(this, &QsciScintillaBase::SCN_UPDATEUI, this, nullptr);
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this] {
        m_look->showMatchingBrace();
        reportCaret();
    });
    const auto fitLineNumbers = [this] { m_look->fitLineNumbers(); };
    connect(this, &QsciScintillaBase::SCN_ZOOM, this, &EditorControl::zoomed);
    connect(this, &EditorControl::zoomed, this, fitLineNumbers);
    connect(this, &QsciScintilla::linesChanged, this, fitLineNumbers);
    connect(this, &QsciScintilla::textChanged, this, &EditorControl::contentChanged);
}

void EditorControl::setUpKeys()
{
    // Select All belongs to the menu, letter case to the window's commands; the slash would zoom,
    // by a key that people expect to type with.
    for (const QKeyCombination key :
         {Qt::CTRL | Qt::Key_A, Qt::CTRL | Qt::Key_U,
          QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_U), Qt::CTRL | Qt::Key_Slash}) {
        if (QsciCommand *command = standardCommands()->boundTo(key.toCombined()))
            command->setKey(0);
    }
    for (const auto &[key, forward] : EditorFindDialog::keysToFindAgain) {
        auto *shortcut = new QShortcut(key, this, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this,
                [this, forward = forward] { findDialog().findAgain(forward); });
    }
}

QString EditorControl::GetText() const
{
    return QString::fromUtf8(m_text->whole());
}

void EditorControl::setText(const QString &text)
{
    m_text->setWhole(editorUtf8(text));
    select(0, 0);
}

void EditorControl::exchange(int begin, int end, const QString &text)
{
    exchangeBytes(*this, {m_positions.toBytes(begin), m_positions.toBytes(end)}, editorUtf8(text));
}

QString EditorControl::textBetween(int begin, int end) const
{
    const long from = m_positions.toBytes(begin);
    return QString::fromUtf8(textBytes(*this, {from, std::max(from, m_positions.toBytes(end))}));
}

QRect EditorControl::characterRectangle(int position) const
{
    const long at = m_positions.toBytes(position);
    const auto coordinate = [this](unsigned int message, long place) {
        return static_cast<int>(SendScintilla(message, 0UL, place));
    };
    const QPoint corner(coordinate(SCI_POINTXFROMPOSITION, at),
                        coordinate(SCI_POINTYFROMPOSITION, at));
    const long next = SendScintilla(SCI_POSITIONAFTER, at);
    const int width = coordinate(SCI_POINTXFROMPOSITION, next) - corner.x();
    const auto height = static_cast<int>(SendScintilla(SCI_TEXTHEIGHT, 0L));
    return {viewport()->mapToGlobal(corner), QSize(std::max(width, 1), height)};
}

int EditorControl::positionAt(const QPoint &point) const
{
    const long at = SendScintilla(SCI_CHARPOSITIONFROMPOINTCLOSE,
                                  static_cast<unsigned long>(point.x()), point.y());
    return at < 0 ? -1 : m_positions.toUnits(at);
}

int EditorControl::SelStart() const
{
    return m_positions.toUnits(selectedRanges(*this).front().begin);
}

void EditorControl::setSelStart(int position)
{
    const long at = m_positions.toBytes(position);
    select(at, at);
}

int EditorControl::SelLength() const
{
    return m_text->selectedLength();
}

void EditorControl::setSelLength(int length)
{
    const int start = SelStart();
    const int longest = textLength() - start;
    select(m_positions.toBytes(start), m_positions.toBytes(start + std::clamp(length, 0, longest)));
}

void EditorControl::select(long anchor, long caret)
{
    const auto cutsLineEnd = [this](long at) {
        return at > 0 && SendScintilla(SCI_GETCHARAT, at - 1) == '\r' &&
               SendScintilla(SCI_GETCHARAT, at) == '\n';
    };
    const bool isEmpty = anchor == caret;
    if (cutsLineEnd(anchor))
        --anchor;
    if (isEmpty)
        caret = anchor;
    else if (cutsLineEnd(caret))
        ++caret;
    SendScintilla(SCI_SETSEL, anchor, caret);
    reportCaret();
}

QString EditorControl::SelText() const
{
    return QString::fromUtf8(m_text->selected());
}

void EditorControl::setSelText(const QString &text)
{
    if (isReadOnly())
        return;
    const long end = m_text->replaceSelected(editorUtf8(text));
    SendScintilla(SCI_GOTOPOS, end);
    m_formats.continueAt(end);
    reportCaret();
}

void EditorControl::ExecuteCommand(int number)
{
    m_changes->collect();
    if (number == CommandUndo)
        SendScintilla(SCI_UNDO);
    else if (number == CommandRedo)
        SendScintilla(SCI_REDO);
    m_changes->tell();
    reportCaret();
}

void EditorControl::LoadSyntax(const QString &path)
{
    const QString text = QString::fromUtf8(editorUtf8FromFile(FileReader(path).readAll()));
    m_colouring->setDefinition(parseSyntaxDefinition(text));
    m_look->apply();
}

void EditorControl::setWordClasses(const WordClasses &classes)
{
    m_colouring->setWordClasses(classes);
    m_look->apply();
}

void EditorControl::LoadFile(const QString &path)
{
    m_text->setWhole(editorUtf8FromFile(FileReader(path).readAll()));
    SendScintilla(SCI_SETSAVEPOINT);
    select(0, 0);
}

void EditorControl::markLines(int firstLine, int lastLine, const QString &text)
{
    m_marks->add(firstLine, lastLine, text);
}

void EditorControl::clearMarks()
{
    m_marks->clear();
}

EditorFindDialog &EditorControl::findDialog()
{
    if (!m_findDialog)
        m_findDialog = new EditorFindDialog(*this);
    return *m_findDialog;
}

void EditorControl::FindDialog()
{
    findDialog().showFor(false);
}

void EditorControl::ReplaceDialog()
{
    findDialog().showFor(true);
}

void EditorControl::PageSetupDialog()
{
    m_pageSetup->exec();
}

int EditorControl::lineFromCharacter(int position) const
{
    return m_positions.lineOf(position < 0 ? SelStart() : std::min(position, textLength()));
}

int EditorControl::lineIndex(int line) const
{
    if (line >= lines())
        return -1;
    return m_positions.lineStart(line < 0 ? lineFromCharacter(-1) : line);
}

int EditorControl::zoomLevel() const
{
    return static_cast<int>(SendScintilla(SCI_GETZOOM));
}

void EditorControl::reportCaret()
{
    const long caret = SendScintilla(SCI_GETCURRENTPOS);
    const int line = static_cast<int>(SendScintilla(SCI_LINEFROMPOSITION, caret));
    const int column = m_positions.toUnits(caret) - m_positions.lineStart(line);
    const std::pair place(column + 1, line + 1);
    if (place == m_reportedCaret)
        return;
    m_reportedCaret = place;
    tellCaret(*this);
    emit caretMoved(place.first, place.second);
}

bool EditorControl::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        keyCommand(*static_cast<QKeyEvent *>(event)) != KeyCommand::None) {
        event->accept();
        return true;
    }
    return QsciScintilla::event(event);
}

void EditorControl::changeEvent(QEvent *event)
{
    QsciScintilla::changeEvent(event);
    // The base class's constructor tells of changes, too.
    if (event->type() == QEvent::PaletteChange && m_look)
        m_look->followPalette();
}

void EditorControl::keyPressEvent(QKeyEvent *event)
{
    emit keyWentDown(windowsKeyCode(*event), windowsShiftState(*event));
    switch (keyCommand(*event)) {
    case KeyCommand::Complete:
        return completionWanted();
    case KeyCommand::ZoomIn:
        return zoomIn();
    case KeyCommand::ZoomOut:
        return zoomOut();
    case KeyCommand::ZoomReset:
        return zoomTo(0);
    case KeyCommand::Undo:
        return ExecuteCommand(CommandUndo);
    case KeyCommand::Redo:
        return ExecuteCommand(CommandRedo);
    case KeyCommand::None:
        break;
    }
    if (typesAltCharacter(*event))
        return event->ignore();
    if (event->matches(QKeySequence::Paste) && selectedRanges(*this).size() > 1)
        return setSelText(QGuiApplication::clipboard()->text());
    const bool hasManyCarets = SendScintilla(SCI_GETSELECTIONS) > 1;
    if (hasManyCarets)
        m_changes->collect();
    QsciScintilla::keyPressEvent(event);
    if (hasManyCarets)
        m_changes->tell();
    reportCaret();
}

/// The widget ends a block with a line end.
QMimeData *EditorControl::toMimeData(const QByteArray &text, bool rectangular) const
{
    const bool ends = rectangular && text.endsWith(lineEnd);
    return QsciScintilla::toMimeData(ends ? text.chopped(2) : text, rectangular);
}

void EditorControl::focusInEvent(QFocusEvent *event)
{
    QsciScintilla::focusInEvent(event);
    if (!std::exchange(m_hasFocus, true))
        emit focusEntered();
}

void EditorControl::focusOutEvent(QFocusEvent *event)
{
    QsciScintilla::focusOutEvent(event);
    if (std::exchange(m_hasFocus, false))
        emit focusLeft();
}

void EditorControl::dragEnterEvent(QDragEnterEvent *event)
{
    if (draggedFile(event->mimeData()).isEmpty())
        QsciScintilla::dragEnterEvent(event);
    else
        event->acceptProposedAction();
}

void EditorControl::dragMoveEvent(QDragMoveEvent *event)
{
    if (draggedFile(event->mimeData()).isEmpty())
        QsciScintilla::dragMoveEvent(event);
    else
        event->acceptProposedAction();
}

void EditorControl::dropEvent(QDropEvent *event)
{
    const QString file = draggedFile(event->mimeData());
    if (file.isEmpty()) {
        QsciScintilla::dropEvent(event);
        return;
    }
    event->acceptProposedAction();
    emit fileDropped(file);
}
