#pragma once

#include <QString>

/// What the toolbar's text commands make of a selected text, in time linear in its length.

/// Letters may become two: "ß" in upper case is "SS".
QString upperCase(const QString &text);
QString lowerCase(const QString &text);

/// The letter after a character 0, 9 to 13 or 32, and the first one, in upper case; every other
/// letter in lower case.
QString properCase(const QString &text);

/// Puts "--" before every line, the empty one after a final line end included.
QString commentLines(const QString &text);

/// Takes out every "--", wherever it stands.
QString uncommentText(const QString &text);
