#pragma once

#include "controls/editor/EditorText.h"

#include <QColor>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

class QsciScintillaBase;

/// What a stretch of text is written in beside its colour; 0 points mean the editor's own size.
struct FontFormat
{
    bool bold = false;
    bool italic = false;
    double points = 0;

    friend bool operator==(const FontFormat &, const FontFormat &) = default;
};

/// Character formats that were set on ranges of the text and lie over the colouring. They move
/// with the text, go with it when it is deleted, and are no steps for undo. Positions and lengths
/// are the widget's: bytes of UTF-8.
///
/// Formats set while nothing is selected belong to the text that is inserted next.
class EditorFormats
{
public:
    explicit EditorFormats(QsciScintillaBase &editor);

    /// Formats of the selection, as EditorControl's operations of these names tell them.
    void setColor(const QColor &color);
    void setPoints(double points);
    void setBold(bool on);
    void setItalic(bool on);
    void setUnderline(bool on);
    void setStrikeThru(bool on);
    /// The colour of a range, whatever is selected.
    void setColor(const ByteRange &range, const QColor &color);

    struct Format
    {
        std::optional<int> color; ///< 0xRRGGBB; none means the colouring's own
        int font = 0;             ///< a font slot
        bool underline = false;
        bool strikeThru = false;
    };
    /// The formats of text that is put in the place of @p range: those at its start, or where it is
    /// empty those that were set for the next insertion; what was set elsewhere is forgotten.
    Format forInsertion(const ByteRange &range);
    /// Gives a range of bytes the formats.
    void apply(const Format &format, long begin, long length);
    /// What was set for the next insertion goes on with one at @p position.
    void continueAt(long position);
    /// Text has been typed: gives it what was set for the next insertion. Elsewhere, that is
    /// forgotten.
    void textInserted(long begin, long length);
    /// Forgets what was set for the next insertion.
    void forgetPending() { m_pendingAt = -1; }

    /// Colour of black stretches, underlines and strokes: the text's own.
    void setTextColor(const QColor &color);

    /// Called with the range of bytes whose fonts have changed.
    using FontsChanged = std::function<void(long begin, long end)>;
    void setFontsChanged(FontsChanged changed) { m_fontsChanged = std::move(changed); }

    // Fonts are styles for the widget, so that the colouring has to ask for the slot of every
    // stretch that it writes. Slot 0 is plain text.
    static constexpr int fontSlots = 7;
    const std::vector<FontFormat> &fonts() const { return m_fonts; }
    int fontSlotAt(long position) const;
    /// End of the stretch of one font around @p position.
    long fontEnd(long position) const;

private:
    template <typename Change>
    void changeFonts(Change change);
    int slotOf(const FontFormat &font);
    void setFlag(int indicator, bool on, bool Format::*flag);
    void setValue(int indicator, int value, long begin, long length);
    int valueAt(int indicator, long position) const;
    Format &pending(long position);

    QsciScintillaBase &m_editor;
    /// For text that is inserted at m_pendingAt.
    Format m_pending;
    long m_pendingAt = -1;
    FontsChanged m_fontsChanged;
    std::vector<FontFormat> m_fonts;
};
