#include "controls/EditorControl.h"

#include "controls/EditorAccessible.h"
#include "controls/EditorChanges.h"
#include "controls/EditorLook.h"
#include "controls/EditorPageSetup.h"
#include "controls/EditorSearch.h"
#include "controls/SyntaxColouring.h"
#include "controls/editorKeys.h"
#include "sqltext/textFile.h"

#include <Qsci/qscicommandset.h>

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int charactersPerTab = 4;

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
    , m_look(std::make_unique<EditorLook>(*this, *m_colouring, m_formats))
    , m_search(std::make_unique<EditorSearch>(*this))
    , m_pageSetup(std::make_unique<EditorPageSetup>(*this))
{
    m_formats.setFontsChanged([this](long begin, long end) {
        m_look->apply();
        m_colouring->colourAgain(begin, end);
    });
    EditorAccessible::install();
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
    connect(this, &QsciScintillaBase::SCN_ZOOM, this, fitLineNumbers);
    connect(this, &QsciScintilla::linesChanged, this, fitLineNumbers);
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
}

QString EditorControl::GetText() const
{
    return QString::fromUtf8(textBytes(0, SendScintilla(SCI_GETLENGTH)));
}

void EditorControl::setText(const QString &text)
{
    SendScintilla(SCI_BEGINUNDOACTION);
    replaceAll(editorUtf8(text));
    SendScintilla(SCI_ENDUNDOACTION);
    m_changes->tell();
    select(0, 0);
}

void EditorControl::replaceAll(const QByteArray &text)
{
    const bool readOnly = isReadOnly();
    SendScintilla(SCI_SETREADONLY, 0L);
    m_formats.forgetPending();
    exchangeBytes(0, SendScintilla(SCI_GETLENGTH), text);
    SendScintilla(SCI_SETREADONLY, static_cast<long>(readOnly));
}

QByteArray EditorControl::textBytes(long begin, long end) const
{
    QByteArray result(end - begin + 1, Qt::Uninitialized);
    SendScintilla(SCI_GETTEXTRANGE, begin, end, result.data());
    result.chop(1);
    return result;
}

void EditorControl::exchangeBytes(long begin, long end, const QByteArray &text)
{
    SendScintilla(SCI_SETTARGETRANGE, static_cast<unsigned long>(begin), end);
    SendScintilla(SCI_REPLACETARGET, static_cast<uintptr_t>(text.size()), text.constData());
}

void EditorControl::exchange(int begin, int end, const QString &text)
{
    exchangeBytes(m_positions.toBytes(begin), m_positions.toBytes(end), editorUtf8(text));
}

int EditorControl::caretPosition() const
{
    return m_positions.toUnits(SendScintilla(SCI_GETCURRENTPOS));
}

QString EditorControl::textBetween(int begin, int end) const
{
    const long from = m_positions.toBytes(begin);
    return QString::fromUtf8(textBytes(from, std::max(from, m_positions.toBytes(end))));
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
    return m_positions.toUnits(SendScintilla(SCI_GETSELECTIONSTART));
}

void EditorControl::setSelStart(int position)
{
    const long at = m_positions.toBytes(position);
    select(at, at);
}

int EditorControl::SelLength() const
{
    return m_positions.toUnits(SendScintilla(SCI_GETSELECTIONEND)) - SelStart();
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
    if (SendScintilla(SCI_SELECTIONISRECTANGLE) == 0)
        return QString::fromUtf8(
            textBytes(SendScintilla(SCI_GETSELECTIONSTART), SendScintilla(SCI_GETSELECTIONEND)));
    QByteArray lines(SendScintilla(SCI_GETSELTEXT), '\0');
    SendScintilla(SCI_GETSELTEXT, lines.data());
    return QString::fromUtf8(lines.constData());
}

void EditorControl::setSelText(const QString &text)
{
    if (isReadOnly())
        return;
    const QByteArray inserted = editorUtf8(text);
    const EditorFormats::Format format = m_formats.forInsertion();
    SendScintilla(SCI_BEGINUNDOACTION);
    SendScintilla(SCI_REPLACESEL, "");
    const long begin = SendScintilla(SCI_GETCURRENTPOS);
    SendScintilla(SCI_ADDTEXT, static_cast<uintptr_t>(inserted.size()), inserted.constData());
    SendScintilla(SCI_ENDUNDOACTION);
    m_formats.apply(format, begin, inserted.size());
    m_formats.continueAt(begin + inserted.size());
    SendScintilla(SCI_SCROLLCARET);
    reportCaret();
}

void EditorControl::setSelColor(const QColor &color)
{
    m_formats.setColor(color);
}

void EditorControl::setSelFontSize(double points)
{
    m_formats.setPoints(points);
}

void EditorControl::setSelBold(bool on)
{
    m_formats.setBold(on);
}

void EditorControl::setSelItalic(bool on)
{
    m_formats.setItalic(on);
}

void EditorControl::setSelUnderline(bool on)
{
    m_formats.setUnderline(on);
}

void EditorControl::setSelStrikeThru(bool on)
{
    m_formats.setStrikeThru(on);
}

void EditorControl::setFontName(const QString &family)
{
    m_look->setFontName(family);
}

QFont EditorControl::Font() const
{
    return m_look->font();
}

void EditorControl::setBackColor(const QColor &color)
{
    m_look->setBackground(color);
}

QColor EditorControl::BackColor() const
{
    return m_look->background();
}

void EditorControl::ExecuteCommand(int number)
{
    if (number == CommandUndo)
        SendScintilla(SCI_UNDO);
    else if (number == CommandRedo)
        SendScintilla(SCI_REDO);
    reportCaret();
}

void EditorControl::LoadSyntax(const QString &path)
{
    const QString text = QString::fromUtf8(editorUtf8FromFile(readWholeFile(path)));
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
    const QByteArray text = editorUtf8FromFile(readWholeFile(path));
    SendScintilla(SCI_SETUNDOCOLLECTION, 0L);
    m_changes->pause();
    m_positions.dropIndex();
    replaceAll(text);
    m_positions.buildIndex();
    m_colouring->colourEverythingAgain();
    SendScintilla(SCI_SETUNDOCOLLECTION, 1L);
    SendScintilla(SCI_EMPTYUNDOBUFFER);
    m_changes->resume();
    SendScintilla(SCI_SETSAVEPOINT);
    select(0, 0);
}

void EditorControl::FindDialog()
{
    m_search->showFind();
}

void EditorControl::ReplaceDialog()
{
    m_search->showReplace();
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
    EditorAccessible::tellCaret(*this);
    emit caretMoved(place.first, place.second);
}

bool EditorControl::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        zoomCommand(*static_cast<QKeyEvent *>(event)) != ZoomCommand::None) {
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
    switch (zoomCommand(*event)) {
    case ZoomCommand::In:
        zoomIn();
        break;
    case ZoomCommand::Out:
        zoomOut();
        break;
    case ZoomCommand::Reset:
        zoomTo(0);
        break;
    case ZoomCommand::None:
        QsciScintilla::keyPressEvent(event);
        reportCaret();
        break;
    }
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
