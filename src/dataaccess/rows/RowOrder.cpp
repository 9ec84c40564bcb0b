#include "dataaccess/rows/MemoryTable.h"

#include "dataaccess/rows/NumberKey.h"
#include "dataaccess/rows/packedCells.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <numeric>
#include <span>

namespace {

/// What a cell is ordered as, in this order.
enum Kind : quint8 { Truth, Number, Time, Text, Bytes, Nothing };

/// A row with a part of its cell that decides between most rows by one comparison.
struct Entry
{
    quint64 key = 0;
    const char *cell = nullptr;
    int row = 0;
};

using Entries = std::span<Entry>;

/// Sorts byte by byte, from the last of the key to its first, without a comparison.
void sortByBytes(Entries entries)
{
    constexpr size_t bytes = sizeof(quint64);
    const auto byteOf = [](const Entry &entry, size_t byte) {
        return entry.key >> (8 * byte) & 0xFF;
    };
    std::array<std::array<size_t, 256>, bytes> places{};
    for (const Entry &entry : entries) {
        for (size_t byte = 0; byte < bytes; ++byte)
            ++places[byte][byteOf(entry, byte)];
    }
    std::vector<Entry> buffer(entries.size());
    Entries from = entries;
    Entries to = buffer;
    for (size_t byte = 0; byte < bytes; ++byte) {
        auto &place = places[byte];
        if (place[byteOf(entries.front(), byte)] == entries.size())
            continue;
        std::exclusive_scan(place.begin(), place.end(), place.begin(), size_t{0});
        for (const Entry &entry : from)
            to[place[byteOf(entry, byte)]++] = entry;
        std::swap(from, to);
    }
    if (from.data() != entries.data())
        std::copy(from.begin(), from.end(), entries.begin());
}

/// Entries of one key stay in the order of their rows.
void sortByKey(Entries entries)
{
    const auto before = [](const Entry &a, const Entry &b) {
        return a.key != b.key ? a.key < b.key : a.row < b.row;
    };
    if (std::is_sorted(entries.begin(), entries.end(), before))
        return;
    // Bytes are the faster way for more than a few, as long as there is memory for a second copy.
    constexpr size_t few = 1024;
    constexpr size_t tooManyToCopy = 4'000'000;
    if (entries.size() > few && entries.size() < tooManyToCopy)
        sortByBytes(entries);
    else
        std::sort(entries.begin(), entries.end(), before);
}

/// Calls @p use with the entries of each key in turn.
template <typename Use>
void forEachRun(Entries entries, const Use &use)
{
    for (size_t begin = 0, end = 0; begin < entries.size(); begin = end) {
        while (end < entries.size() && entries[end].key == entries[begin].key)
            ++end;
        use(entries.subspan(begin, end - begin));
    }
}

Kind kindOf(const char *cell)
{
    const auto tag = static_cast<quint8>(*cell);
    if (tag > CellShortLatin1)
        return Text;
    if (tag <= CellNull || tag == CellShortLatin1)
        return Nothing;
    if (tag <= CellTrue)
        return Truth;
    if (isPackedNumber(cell))
        return Number;
    if (tag >= CellDate && tag <= CellTimestamp)
        return Time;
    return tag == CellBinary ? Bytes : Text;
}

/// Whether a number is exactly a double, as those that are not of many digits are.
bool isDouble(const Entry &entry)
{
    constexpr int bytesInMantissa = 6;
    const auto tag = static_cast<quint8>(*entry.cell);
    return tag == CellDouble || (tag >= CellInteger && tag <= CellInteger + bytesInMantissa);
}

/// A number that stands in the order of such numbers; what is none stands last.
quint64 doubleKey(const char *cell)
{
    const Value value = packedCellValue(cell);
    const auto *integer = std::get_if<std::int64_t>(&value.variant());
    const double number =
        integer ? static_cast<double>(*integer) : std::get<double>(value.variant());
    if (std::isnan(number))
        return ~quint64{0};
    constexpr quint64 sign = quint64{1} << 63;
    const auto bits = std::bit_cast<quint64>(number + 0.0); // no negative zero
    return bits & sign ? ~bits : bits | sign;
}

void appendTimeKey(const Timestamp &time, ByteBuffer &bytes)
{
    constexpr int yearBias = 0x8000;
    const int year = time.year + yearBias;
    for (const int part : {year >> 8, year & 0xFF, int{time.month}, int{time.day}, int{time.hour},
                           int{time.minute}, int{time.second}})
        bytes.append(static_cast<char>(part));
    for (int shift = 24; time.nanosecond != 0 && shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(time.nanosecond >> shift));
}

/// Units of texts in an order in which those of a pair stand for characters beyond all others.
quint16 inCodePointOrder(quint16 unit)
{
    if (unit >= 0xE000)
        return static_cast<quint16>(unit - 0x800);
    return unit >= 0xD800 ? static_cast<quint16>(unit + 0x2000) : unit;
}

/// Brings entries of one kind into their order. It sorts by the first units of what the cells hold
/// and goes on, where many are equal, with those behind them, so that a cell is looked at a few
/// times and not once for every comparison.
class EntrySorter
{
public:
    EntrySorter(Kind kind, bool descending, Entries entries)
        : m_isStored(kind == Text || kind == Bytes)
        , m_kind(kind)
        , m_flip(descending ? ~quint64{0} : 0)
        , m_entries(entries)
    {
        const auto isWide = [](const Entry &entry) { return storedUnits(entry.cell).width == 2; };
        if (kind == Text && std::any_of(entries.begin(), entries.end(), isWide))
            m_step = 3;
    }

    void sort()
    {
        if (m_kind == Number && std::all_of(m_entries.begin(), m_entries.end(), isDouble)) {
            for (Entry &entry : m_entries)
                entry.key = doubleKey(entry.cell) ^ m_flip;
            return sortByKey(m_entries);
        }
        m_open = {{m_entries, 0}};
        while (!m_open.empty()) {
            const Range range = m_open.back();
            m_open.pop_back();
            sort(range);
        }
    }

private:
    /// Entries that are equal up to @p depth units.
    struct Range
    {
        Entries entries;
        qsizetype depth;
    };
    static constexpr quint64 more = 0xFF;

    /// The units from @p depth on that have room in a key. Its last byte is their number, or says
    /// that there are more.
    quint64 keyAt(const char *cell, qsizetype depth)
    {
        StoredUnits units;
        if (m_isStored) {
            units = storedUnits(cell);
        } else {
            m_bytes.clear();
            appendKey(cell);
            units = {m_bytes.view().data(), m_bytes.size(), 1};
        }
        const qsizetype left = units.count - depth;
        if (m_step == bytesInKey && left > m_step)
            return qFromBigEndian<quint64>(units.data + depth) | more;
        const qsizetype taken = std::min(left, m_step);
        quint64 key = 0;
        for (qsizetype i = 0; i < m_step; ++i) {
            const quint16 unit = i < taken ? units.at(depth + i) : 0;
            key = m_step == bytesInKey ? key << 8 | unit : key << 16 | inCodePointOrder(unit);
        }
        return key << 8 | (left > taken ? more : static_cast<quint64>(taken));
    }

    void appendKey(const char *cell)
    {
        if (m_kind == Number)
            m_numbers.append(cell, m_bytes);
        else if (m_kind == Time)
            appendTimeKey(packedCellTimestamp(cell).value_or(Timestamp{}), m_bytes);
        else
            m_bytes.append(*cell);
    }

    void sort(const Range &range)
    {
        for (Entry &entry : range.entries)
            entry.key = keyAt(entry.cell, range.depth) ^ m_flip;
        sortByKey(range.entries);
        forEachRun(range.entries, [&](Entries run) {
            if (run.size() == 1 || ((run.front().key ^ m_flip) & more) != more)
                return;
            qsizetype depth = range.depth + m_step;
            if (m_isStored && run.size() == range.entries.size())
                depth = commonUnits(run, depth);
            m_open.push_back({run, depth});
        });
    }

    /// The number of units that all entries have in common, which is @p known at least.
    static qsizetype commonUnits(Entries entries, qsizetype known)
    {
        const StoredUnits model = storedUnits(entries.front().cell);
        qsizetype common = model.count;
        for (const Entry &entry : entries.subspan(1)) {
            const StoredUnits units = storedUnits(entry.cell);
            common = std::min(common, units.count);
            const qsizetype from = known * units.width;
            const auto bytes = static_cast<size_t>(common * units.width - from);
            if (units.width == model.width &&
                std::memcmp(units.data + from, model.data + from, bytes) == 0)
                continue;
            qsizetype equal = known;
            while (equal < common && units.at(equal) == model.at(equal))
                ++equal;
            common = equal;
        }
        return common;
    }

    static constexpr qsizetype bytesInKey = 7;
    bool m_isStored; ///< the units lie in the cells themselves
    Kind m_kind;
    quint64 m_flip;
    qsizetype m_step = bytesInKey; ///< units in a key
    Entries m_entries;
    std::vector<Range> m_open;
    ByteBuffer m_bytes;
    NumberKey m_numbers;
};

} // namespace

std::vector<int> orderedRows(const MemoryTable &table, int field, bool descending)
{
    std::vector<Entry> entries(static_cast<size_t>(table.rowCount()));
    for (int row = 0; Entry & entry : entries) {
        const char *cell = table.row(row);
        for (int before = 0; before < field; ++before)
            cell = packedCellEnd(cell);
        const Kind kind = kindOf(cell);
        const int place = descending && kind != Nothing ? Bytes - kind : kind;
        entry = {static_cast<quint64>(place), cell, row++};
    }
    sortByKey(entries);
    forEachRun(entries, [descending](Entries run) {
        const Kind kind = kindOf(run.front().cell);
        if (kind != Nothing)
            EntrySorter(kind, descending, run).sort();
    });
    std::vector<int> order(entries.size());
    std::transform(entries.begin(), entries.end(), order.begin(),
                   [](const Entry &entry) { return entry.row; });
    return order;
}
