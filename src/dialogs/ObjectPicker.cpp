#include "dialogs/ObjectPicker.h"

#include "controls/forms/WaitingLoop.h"
#include "controls/forms/formControls.h"
#include "platform/errorTraps.h"
#include "sqltext/dictionary.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QColor pickColor(255, 140, 0);

/// Has no current entry when it gets the focus, so that the first key leads to the first one.
class PickList : public QListWidget
{
public:
    using QListWidget::QListWidget;

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        QListWidget::focusInEvent(event);
        if (selectedItems().isEmpty())
            setCurrentItem(nullptr);
    }
};

/// Enter in a combo box picks what is typed there, if there is such an entry.
void pickTyped(QComboBox &combo)
{
    const int index = combo.findText(combo.currentText(), Qt::MatchFixedString);
    if (index < 0)
        return;
    combo.setCurrentIndex(index);
    emit combo.activated(index);
}

} // namespace

ObjectPicker::ObjectPicker(const QString &name, const QString &caption, const QString &listLabel,
                           QWidget *parent)
    : FormDialog(name, caption, parent)
    , m_combos(new QFormLayout)
{
    cmbSchema = addCombo(u"cmbSchema"_s, u"&Schema"_s);
    lstObject = named<QListWidget>(new PickList(this), u"lstObject"_s);
    lstObject->setUniformItemSizes(true);
    lstObject->setAccessibleName(withoutMnemonic(listLabel));
    auto *label = new QLabel(listLabel, this);
    label->setBuddy(lstObject);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(m_combos);
    layout->addWidget(label);
    layout->addWidget(lstObject, 1);
    resize(360, 420);

    connect(cmbSchema, &QComboBox::activated, this, &ObjectPicker::cmbSchema_Click);
    connect(lstObject, &QListWidget::itemClicked, this, &ObjectPicker::lstObject_Click);
    lstObject->installEventFilter(this);
}

QComboBox *ObjectPicker::addCombo(const QString &name, const QString &label)
{
    auto *combo = named(new QComboBox(this), name);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setAccessibleName(withoutMnemonic(label));
    combo->lineEdit()->setAccessibleName(withoutMnemonic(label));
    combo->view()->setAccessibleName(withoutMnemonic(label));
    // A typed name stays as it is typed, and leaving the field does not pick it; what begins with
    // it is listed below.
    auto *found = new QListView;
    found->setUniformItemSizes(true);
    found->setAccessibleName(withoutMnemonic(label));
    combo->completer()->setCompletionMode(QCompleter::PopupCompletion);
    combo->completer()->setPopup(found);
    disconnect(combo->lineEdit(), &QLineEdit::editingFinished, combo, nullptr);
    connect(combo->lineEdit(), &QLineEdit::returnPressed, combo, [combo] { pickTyped(*combo); });
    connect(combo, &QComboBox::activated, combo->lineEdit(), &QLineEdit::selectAll);
    m_combos->addRow(label, combo);
    return combo;
}

void ObjectPicker::setExtUnameTns(QString &extUname, QString &extTns) const
{
    extUname = m_userName;
    extTns = m_tnsName;
}

void ObjectPicker::setUserPwd(const QString &usr, const QString & /*passwd*/,
                              const QString &tnsname)
{
    m_userName = usr;
    m_tnsName = tnsname;
}

bool ObjectPicker::Form_Load()
{
    lstObject->clear();
    const bool loaded = reportErrors([this] {
        loadSchemas();
        loadSchema();
    });
    // To begin with, the last field that there is something to find in.
    QWidget *const lastCombo =
        m_combos->itemAt(m_combos->rowCount() - 1, QFormLayout::FieldRole)->widget();
    (lstObject->count() > 0 ? lstObject : lastCombo)->setFocus();
    return loaded;
}

QStringList ObjectPicker::names(const QString &query) const
{
    const HourglassPointer hourglass;
    return namesFrom(query, m_connection);
}

void ObjectPicker::fill(QComboBox &combo, const QString &query) const
{
    combo.clear();
    combo.addItems(names(query));
    // The toolkit takes the first entry of a filled combo box as picked.
    combo.setCurrentIndex(-1);
}

void ObjectPicker::fill(QListWidget &list, const QString &query) const
{
    list.clear();
    list.addItems(names(query));
}

void ObjectPicker::loadSchemas()
{
    fill(*cmbSchema, schemasQuery());
    const QString schema = m_userName.toUpper();
    cmbSchema->setCurrentIndex(cmbSchema->findText(schema, Qt::MatchExactly));
    cmbSchema->setEditText(schema);
    cmbSchema->lineEdit()->selectAll();
}

void ObjectPicker::cmbSchema_Click()
{
    loadOrClose([this] { loadSchema(); });
}

/// Every step is tried, whatever became of the one before.
void ObjectPicker::lstObject_Click()
{
    const QListWidgetItem *entry = lstObject->currentItem();
    if (!entry)
        return;
    const QString text = textToInsert(entry->text());
    ignoreErrors([this] { m_target.control().setSelColor(pickColor); });
    ignoreErrors([&] { m_target.control().InsertText(text); });
    ignoreErrors([this] { m_target.focusWindow(); });
    ignoreErrors([this] { m_target.control().setSelColor(Qt::black); });
}

/// Enter on the list picks. Its own signal for that may, by the desktop's setting, come with a
/// click as well.
bool ObjectPicker::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != lstObject || !isEnterPress(*event))
        return FormDialog::eventFilter(watched, event);
    lstObject_Click();
    return true;
}

void ObjectPicker::loadOrClose(const std::function<void()> &load)
{
    if (!reportErrors(load))
        reject();
}
