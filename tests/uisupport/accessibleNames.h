#pragma once

#include <QStringList>

class QWidget;

/// The controls of @p window, itself among them, that can have the focus and that a screen reader
/// has no name for; those on hidden pages, too.
QStringList namelessControls(QWidget &window);
