#pragma once

#include <QByteArray>

#include <vector>

class QsciScintillaBase;

/// A stretch of an editor's text, in the widget's bytes of UTF-8.
struct ByteRange
{
    long begin;
    long end;

    long length() const { return end - begin; }
};

/// What is selected, from top to bottom: one stretch, or for a rectangular selection one in every
/// row of the block, empty where the row is too short. A rectangle of no width selects nothing:
/// it is the empty stretch at the caret.
std::vector<ByteRange> selectedRanges(const QsciScintillaBase &editor);

QByteArray textBytes(const QsciScintillaBase &editor, const ByteRange &range);
void exchangeBytes(QsciScintillaBase &editor, const ByteRange &range, const QByteArray &text);
