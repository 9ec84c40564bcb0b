#include "editor/ExplainPlan.h"

#include "connection/session.h"
#include "controls/ColumnTree.h"
#include "dataaccess/Recordset.h"
#include "platform/RuntimeError.h"
#include "platform/systemClock.h"
#include "sqltext/explainStatements.h"

#include <QScopeGuard>

#include <array>
#include <utility>

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

} // namespace

ExplainPlan::ExplainPlan(ColumnTree *tree, std::function<void()> showExecutionTime)
    : m_tree(tree)
    , m_showExecutionTime(std::move(showExecutionTime))
{
}

void ExplainPlan::setupPlanColumns()
{
    m_tree->setColumnWidth(0, stepColumnWidth);
    m_tree->addColumn(u"object_name"_s, u"Object Name"_s, objectColumnWidth, Qt::AlignLeft);
    m_tree->addColumn(u"cardinality"_s, u"Cardinality"_s, figureColumnWidth, Qt::AlignRight);
    m_tree->addColumn(u"bytes"_s, u"Bytes"_s, figureColumnWidth, Qt::AlignRight);
    m_tree->addColumn(u"cost"_s, u"Cost"_s, figureColumnWidth, Qt::AlignRight);
}

void ExplainPlan::explain(const QString &statement)
{
    const QString id = explainStatementId(gUserName, localNow());
    const std::shared_ptr<Connection> connection = requireConnection();
    connection->Execute(deletePlanStatement(id));
    connection->Execute(explainPlanStatement(id, statement));
    m_showExecutionTime();
    fillPlanTree(planQuery(id));
}

void ExplainPlan::fillPlanTree(const QString &query)
{
    m_tree->clear();
    const std::shared_ptr<Recordset> plan = requireConnection()->Execute(query);
    if (plan->Eof())
        return;
    m_tree->setUpdatesEnabled(false);
    const auto showFilled = qScopeGuard([this] { m_tree->setUpdatesEnabled(true); });
    addSteps(*plan);
}

void ExplainPlan::addSteps(Recordset &plan)
{
    NodeTable nodes;
    // The root is the whole statement; its own figures are left out.
    auto *root = new QTreeWidgetItem(m_tree, {plan.value(u"query_plan"_s).toText()});
    const qint32 rootId = plan.value(u"id"_s).toInteger();
    if (nodes.holds(rootId))
        nodes.at(rootId) = root;
    root->setExpanded(true);

    for (plan.MoveNext(); !plan.Eof(); plan.MoveNext()) {
        const qint32 parentId = plan.value(u"parent_id"_s).toInteger();
        QTreeWidgetItem *&slot = nodes.at(plan.value(u"id"_s).toInteger());
        QTreeWidgetItem *parent = nodes.at(parentId);
        if (parent == nullptr)
            throw RuntimeError(ErrorNumber::ObjectVariableNotSet);
        slot = new QTreeWidgetItem(parent, {plan.value(u"query_plan"_s).toText()});
        for (const char16_t *column : shownColumns) {
            const QString key = QString::fromUtf16(column);
            slot->setText(m_tree->columnIndex(key), plan.value(key).toText());
        }
        slot->setExpanded(true);
        parent->setExpanded(true);
    }
}
