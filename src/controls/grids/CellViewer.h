#pragma once

#include "dataaccess/rows/ValueParts.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QSpinBox;

/// Shows one value of a result whole. Values too long for the text control are shown part by part,
/// so that none of any length lets the program wait. It stays open beside the rows.
class CellViewer : public QDialog
{
    Q_OBJECT
public:
    explicit CellViewer(QWidget *parent);

    /// Shows @p value, in place of the one before.
    void showValue(const QString &title, const Value &value);

private:
    void createOptions();
    void createParts();
    void showPart(int part);
    void applyOptions();
    void copy() const;

    ValueParts m_parts;
    QPlainTextEdit *txtValue;
    QCheckBox *chkWrap;
    QCheckBox *chkLineEnds;
    QLabel *lblSize;
    QWidget *m_partRow;
    QLabel *lblParts;
    QSpinBox *spnPart;
};
