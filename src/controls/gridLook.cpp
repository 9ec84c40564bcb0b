#include "controls/gridLook.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QTableView>

namespace {

/// The colour on the way from @p from to @p to.
QColor between(const QColor &from, const QColor &to, float share)
{
    return QColor::fromRgbF(from.redF() + (to.redF() - from.redF()) * share,
                            from.greenF() + (to.greenF() - from.greenF()) * share,
                            from.blueF() + (to.blueF() - from.blueF()) * share);
}

void applyColours(QAbstractItemView *view)
{
    const QPalette program = QApplication::palette(view);
    const QColor base = program.color(QPalette::Active, QPalette::Base);
    const QColor text = program.color(QPalette::Active, QPalette::Text);
    const QColor accent = program.color(QPalette::Active, QPalette::Highlight);

    QPalette palette;
    palette.setColor(QPalette::AlternateBase, between(base, text, 0.04F));
    palette.setColor(QPalette::Highlight, between(base, accent, 0.4F));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, between(base, accent, 0.25F));
    palette.setColor(QPalette::HighlightedText, text);
    view->setPalette(palette);
}

/// Applies the colours anew when the palette that they are mixed from has changed.
class ColourKeeper : public QObject
{
public:
    explicit ColourKeeper(QAbstractItemView *view)
        : QObject(view)
        , m_view(view)
    {
        view->installEventFilter(this);
        update();
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::PaletteChange && !m_updating)
            update();
        return false;
    }

private:
    void update()
    {
        m_updating = true;
        applyColours(m_view);
        m_updating = false;
    }

    QAbstractItemView *m_view;
    bool m_updating = false;
};

} // namespace

void applyGridLook(QAbstractItemView *view)
{
    view->setAlternatingRowColors(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setTabKeyNavigation(false);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    if (qobject_cast<QTableView *>(view)) {
        if (auto *corner = view->findChild<QAbstractButton *>({}, Qt::FindDirectChildrenOnly))
            corner->setAccessibleName(QTableView::tr("Select all"));
    }
    new ColourKeeper(view);
}
