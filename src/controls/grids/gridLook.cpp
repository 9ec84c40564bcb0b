#include "controls/grids/gridLook.h"

#include "controls/forms/ColourTheme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QTableView>

namespace {

void applyColours(QAbstractItemView *view)
{
    const QPalette program = QApplication::palette(view);
    const ColourTheme theme(program);
    const QColor accent = program.color(QPalette::Active, QPalette::Highlight);

    QPalette palette;
    palette.setColor(QPalette::AlternateBase, theme.otherRow());
    palette.setColor(QPalette::Highlight, theme.tinted(accent, 0.4));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, theme.tinted(accent, 0.25));
    palette.setColor(QPalette::HighlightedText, theme.text());
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
