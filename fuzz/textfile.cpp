// SQL text in whatever form somebody saved it: every file gives the text that it holds, with the
// editor's line ends, and what the editor holds comes back from every form that it can be saved in.

#include "platform/files.h"
#include "support/fuzzing.h"

#include <QRegularExpression>
#include <QStringConverter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Encoding = QStringConverter::Encoding;

QString decoded(const QByteArray &bytes, Encoding encoding)
{
    using Flag = QStringConverter::Flag;
    QStringDecoder decode(encoding, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decode(bytes);
    QString whole;
    for (const uint character : text.toUcs4()) // where halves of pairs are the sign for none
        whole += QChar::fromUcs4(character);
    return whole;
}

QByteArray withCrLf(QString text)
{
    static const QRegularExpression lineEnd(u"\r\n|\r|\n"_s);
    return text.replace(lineEnd, u"\r\n"_s).toUtf8();
}

/// The texts that a file may mean. Only zeros leave it open which one that is.
QStringList meanings(const QByteArray &bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return {decoded(bytes.mid(3), Encoding::Utf8)};
    if (bytes.startsWith("\xFF\xFE"))
        return {decoded(bytes.mid(2), Encoding::Utf16LE)};
    if (bytes.startsWith("\xFE\xFF"))
        return {decoded(bytes.mid(2), Encoding::Utf16BE)};
    QStringList texts{decoded(bytes, bytes.isValidUtf8() ? Encoding::Utf8 : Encoding::Latin1)};
    if (bytes.contains('\0'))
        texts << decoded(bytes, Encoding::Utf16LE) << decoded(bytes, Encoding::Utf16BE);
    return texts;
}

void checkFile(const QByteArray &bytes)
{
    const QByteArray editor = editorUtf8FromFile(bytes);
    require(editor.isValidUtf8(), "the editor is given UTF-8");
    const QStringList texts = meanings(bytes);
    const bool isMeant = std::any_of(texts.begin(), texts.end(),
                                     [&](const QString &text) { return editor == withCrLf(text); });
    require(isMeant, "a file gives its text");
}

void checkText(const QString &text)
{
    const QByteArray editor = editorUtf8(text);
    require(editor == withCrLf(text), "line ends change and nothing else");
    for (const Encoding encoding : {Encoding::Utf8, Encoding::Utf16LE, Encoding::Utf16BE}) {
        QStringEncoder encode(encoding, QStringConverter::Flag::WriteBom);
        const QByteArray marked = encode(text);
        if (!text.isEmpty())
            require(editorUtf8FromFile(marked) == editor, "a marked file comes back");
    }
    const bool looksMarked = text.startsWith(QChar::ByteOrderMark);
    if (!looksMarked && !text.contains(QChar::Null))
        require(editorUtf8FromFile(editor) == editor, "a saved text comes back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    checkFile(bytesOf(data, size).toByteArray());
    checkText(textOf(data, size));
    return 0;
}
