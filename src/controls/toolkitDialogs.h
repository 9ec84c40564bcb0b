#pragma once

class QDialog;

/// Gives those parts of one of the toolkit's own dialogs a name that screen readers would otherwise
/// find nameless: the lists that combo boxes drop down, pages, and what stands below a heading.
/// To be called before the dialog is shown.
void nameParts(QDialog &dialog);
