#include "dataaccess/Recordset.h"

#include "dataaccess/Connection.h"
#include "dataaccess/ConnectionPrivate.h"
#include "dataaccess/RecordsetPrivate.h"
#include "platform/RuntimeError.h"

Recordset::Recordset()
    : d(std::make_unique<RecordsetPrivate>())
{
}

Recordset::~Recordset() = default;

CursorLocationEnum Recordset::CursorLocation() const
{
    return d->cursorLocation;
}

void Recordset::setCursorLocation(CursorLocationEnum location)
{
    d->requireClosed();
    d->cursorLocation = location;
}

CursorTypeEnum Recordset::CursorType() const
{
    return d->cursorType;
}

void Recordset::setCursorType(CursorTypeEnum type)
{
    d->requireClosed();
    d->cursorType = type;
}

LockTypeEnum Recordset::LockType() const
{
    return d->lockType;
}

void Recordset::setLockType(LockTypeEnum type)
{
    d->requireClosed();
    d->lockType = type;
}

int Recordset::CacheSize() const
{
    return d->cacheSize;
}

void Recordset::setCacheSize(int rows)
{
    d->requireClosed();
    if (rows < 1)
        throw RuntimeError(ErrorNumber::InvalidArgument);
    d->cacheSize = rows;
}

Value Recordset::Property(const QString &name) const
{
    const auto found = d->properties.constFind(name.toLower());
    if (found == d->properties.constEnd())
        throw RuntimeError(ErrorNumber::ItemNotFound);
    return *found;
}

void Recordset::setProperty(const QString &name, const Value &value)
{
    d->properties.insert(name.toLower(), value);
}

void Recordset::appendField(const QString &name, DataTypeEnum type, int definedSize)
{
    d->appendField({name, type, definedSize});
}

void Recordset::Open()
{
    d->openInMemory();
}

void Recordset::Open(const QString &source, const std::shared_ptr<Connection> &connection)
{
    d->requireClosed();
    if (!connection || !connection->d->session)
        throw RuntimeError(ErrorNumber::InvalidConnection);
    d->openOn(connection->d->session, source);
}

void Recordset::Close()
{
    d->requireOpen();
    d->close();
}

ObjectStateEnum Recordset::State() const
{
    return d->isOpen() ? adStateOpen : adStateClosed;
}

bool Recordset::Bof() const
{
    return d->isEmpty();
}

bool Recordset::Eof() const
{
    return d->atEnd();
}

qint64 Recordset::RecordCount() const
{
    return d->recordCount();
}

void Recordset::MoveFirst()
{
    d->moveFirst();
}

void Recordset::MoveNext()
{
    d->moveNext();
}

int Recordset::fieldCount() const
{
    return static_cast<int>(d->fields().size());
}

QString Recordset::fieldName(int field) const
{
    return d->field(field).name;
}

DataTypeEnum Recordset::fieldType(int field) const
{
    return d->field(field).type;
}

int Recordset::fieldIndex(const QString &name) const
{
    return d->fieldIndex(name);
}

Value Recordset::value(int field) const
{
    return d->value(field);
}

Value Recordset::value(const QString &name) const
{
    d->requireOpen();
    return d->value(d->fieldIndex(name));
}

void Recordset::setValue(int field, const Value &value)
{
    d->setValue(field, value);
}

void Recordset::setValue(const QString &name, const Value &value)
{
    d->requireOpen();
    d->setValue(d->fieldIndex(name), value);
}

void Recordset::AddNew()
{
    d->addNew();
}

void Recordset::addNewFrom(const Recordset &source)
{
    d->addNewFrom(*source.d);
}

void Recordset::setSort(const QString &order)
{
    d->setSort(order);
}

QString Recordset::Sort() const
{
    return d->sort;
}

QString Recordset::textAt(qint64 row, int field) const
{
    d->requireCell(row, field);
    return d->table().text(row, field);
}

QString Recordset::textStartAt(qint64 row, int field, qsizetype longest) const
{
    d->requireCell(row, field);
    return d->table().textStart(row, field, longest);
}

bool Recordset::isNumberAt(qint64 row, int field) const
{
    d->requireCell(row, field);
    return d->table().isNumber(row, field);
}

void Recordset::appendRowText(qint64 row, int firstField, int lastField, QChar separator,
                              QString &text) const
{
    d->requireCell(row, firstField);
    d->requireCell(row, lastField);
    d->table().appendText(row, firstField, lastField, separator, text);
}

qint64 Recordset::storedBytes() const
{
    return d->table().bytes();
}
