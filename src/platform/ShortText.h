#pragma once

#include <QByteArrayView>
#include <QString>

#include <algorithm>

/// A text of up to 48 Latin characters that is built in place. Numbers and dates are written by
/// the million, and most of them never become a QString.
class ShortText
{
public:
    void append(char character) { m_characters[m_length++] = character; }
    void append(QByteArrayView characters)
    {
        std::copy(characters.begin(), characters.end(), m_characters + m_length);
        m_length += characters.size();
    }
    void append(qsizetype count, char character)
    {
        std::fill_n(m_characters + m_length, count, character);
        m_length += count;
    }
    /// A number from 0 to 99, with a zero in front below 10.
    void appendTwoDigits(int number)
    {
        append(static_cast<char>('0' + number / 10));
        append(static_cast<char>('0' + number % 10));
    }
    /// A number from 0 to 999, with nothing in front.
    void appendNumber(int number)
    {
        if (number >= 100)
            append(static_cast<char>('0' + number / 100));
        if (number >= 10)
            append(static_cast<char>('0' + number / 10 % 10));
        append(static_cast<char>('0' + number % 10));
    }

    QByteArrayView view() const { return {m_characters, m_length}; }
    QString toString() const { return QString::fromLatin1(view()); }

private:
    char m_characters[48];
    qsizetype m_length = 0;
};
