#include "platform/mousePointer.h"

#include <utility>

namespace {

int currentShape = MousePointer::Default;

std::function<void(int)> &presenter()
{
    static std::function<void(int)> installed;
    return installed;
}

} // namespace

int mousePointer()
{
    return currentShape;
}

void setMousePointer(int shape)
{
    if (shape == currentShape)
        return;
    currentShape = shape;
    if (presenter())
        presenter()(shape);
}

void setMousePointerPresenter(std::function<void(int)> newPresenter)
{
    presenter() = std::move(newPresenter);
}
