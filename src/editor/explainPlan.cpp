#include "editor/ToolbarCommands.h"

#include "connection/session.h"
#include "controls/grids/ColumnTree.h"
#include "dataaccess/Recordset.h"
#include "editor/WindowControls.h"
#include "platform/RuntimeError.h"
#include "platform/systemClock.h"
#include "sqltext/outcomeTexts.h"
#include "sqltext/sqlTexts.h"

#include <QScopeGuard>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The tree's nodes by plan-step id; ids past its end are an error.
class NodeTable
{
public:
    bool holds(qint32 id) const { return id >= 0 && id < static_cast<qint32>(m_nodes.size()); }

    QTreeWidgetItem *&at(qint32 id)
    {
        if (!holds(id))
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return m_nodes[static_cast<size_t>(id)];
    }

private:
    std::array<QTreeWidgetItem *, 501> m_nodes{};
};

// Widths in pixels.
constexpr int stepColumnWidth = 500;
constexpr int objectColumnWidth = 200;
constexpr int figureColumnWidth = 100;

constexpr const char16_t *shownColumns[] = {u"object_name", u"cardinality", u"bytes", u"cost"};

/// @returns their number
int addSteps(ColumnTree &tree, Recordset &plan)
{
    NodeTable nodes;
    // The root is the whole statement; its own figures are left out.
    auto *root = new QTreeWidgetItem(&tree, {plan.value(u"query_plan"_s).toText()});
    const qint32 rootId = plan.value(u"id"_s).toInteger();
    if (nodes.holds(rootId))
        nodes.at(rootId) = root;
    root->setExpanded(true);

    int steps = 1;
    for (plan.MoveNext(); !plan.Eof(); plan.MoveNext(), ++steps) {
        const qint32 parentId = plan.value(u"parent_id"_s).toInteger();
        QTreeWidgetItem *&slot = nodes.at(plan.value(u"id"_s).toInteger());
        QTreeWidgetItem *parent = nodes.at(parentId);
        if (parent == nullptr)
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        slot = new QTreeWidgetItem(parent, {plan.value(u"query_plan"_s).toText()});
        for (const char16_t *column : shownColumns) {
            const QString key = QString::fromUtf16(column);
            slot->setText(tree.columnIndex(key), plan.value(key).toText());
        }
        slot->setExpanded(true);
        parent->setExpanded(true);
    }
    return steps;
}

} // namespace

void setupPlanColumns(ColumnTree &tree)
{
    tree.setColumnWidth(0, stepColumnWidth);
    tree.addColumn(u"object_name"_s, u"Object Name"_s, objectColumnWidth, Qt::AlignLeft);
    tree.addColumn(u"cardinality"_s, u"Cardinality"_s, figureColumnWidth, Qt::AlignRight);
    tree.addColumn(u"bytes"_s, u"Bytes"_s, figureColumnWidth, Qt::AlignRight);
    tree.addColumn(u"cost"_s, u"Cost"_s, figureColumnWidth, Qt::AlignRight);
}

void explainPlan(WindowControls &controls, const QString &statement)
{
    const QString id = explainStatementId(gUserName, localNow());
    const std::shared_ptr<Connection> connection = requireConnection();
    connection->Execute(deletePlanStatement(id));
    connection->Execute(explainPlanStatement(id, statement));
    controls.showExecutionTime();
    controls.showInformation(planText(fillPlanTree(*controls.tvwColumns, planQuery(id))));
}

int fillPlanTree(ColumnTree &tree, const QString &query)
{
    tree.clear();
    const std::shared_ptr<Recordset> plan = requireConnection()->Execute(query);
    if (plan->Eof())
        return 0;
    tree.setUpdatesEnabled(false);
    const auto showFilled = qScopeGuard([&] { tree.setUpdatesEnabled(true); });
    return addSteps(tree, *plan);
}
