#pragma once

#include "controls/editor/EditorTarget.h"
#include "controls/forms/FormDialog.h"
#include "dataaccess/Connection.h"

#include <QString>

#include <functional>
#include <memory>

class QComboBox;
class QFormLayout;
class QListWidget;

/// What the dialogs that pick a database object have in common: the session that they browse, the
/// editor that they write into, a combo box of schemas and a list of what can be picked.
///
/// Set the session and the editor, then show the dialog. It stays open after a pick. When the
/// dictionary cannot be read it says why and closes; a name typed into a combo box is looked up
/// only when it is picked there.
class ObjectPicker : public FormDialog
{
    Q_OBJECT
public:
    /// Hands out the user name and the TNS name.
    void setExtUnameTns(QString &extUname, QString &extTns) const;
    /// Hands out the connection.
    void setExtDbC(std::shared_ptr<Connection> &dBdext) const { dBdext = m_connection; }
    void setDbc(const std::shared_ptr<Connection> &dbc) { m_connection = dbc; }
    void setUserPwd(const QString &usr, const QString &passwd, const QString &tnsname);
    void setTxt(EditorControl *ctl, QWidget *frm) { m_target = EditorTarget(ctl, frm); }

protected:
    /// @param listLabel  stands above the list
    ObjectPicker(const QString &name, const QString &caption, const QString &listLabel,
                 QWidget *parent);

    /// A combo box below the ones that are there.
    QComboBox *addCombo(const QString &name, const QString &label);

    bool Form_Load() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Fills what depends on the schema's text.
    /// @throws RuntimeError when the dictionary cannot be read
    virtual void loadSchema() = 0;
    /// The text that picking a list entry writes into the editor.
    virtual QString textToInsert(const QString &entry) const = 0;

    /// Empties the combo box and fills it with the first field of every row of @p query, in the
    /// order in which the rows come. Its text stays empty until an entry is picked.
    /// @throws RuntimeError 91 without a connection, 94 for a null, otherwise the server's; the
    ///         combo box is then empty
    void fill(QComboBox &combo, const QString &query) const;
    /// The same for a list box.
    void fill(QListWidget &list, const QString &query) const;
    /// Runs @p load; when it fails, says why and closes the dialog.
    void loadOrClose(const std::function<void()> &load);

    QComboBox *cmbSchema;
    QListWidget *lstObject;

private slots:
    void cmbSchema_Click();
    void lstObject_Click();

private:
    void loadSchemas();
    QStringList names(const QString &query) const;

    QFormLayout *m_combos;
    std::shared_ptr<Connection> m_connection;
    QString m_userName;
    QString m_tnsName;
    EditorTarget m_target;
};
