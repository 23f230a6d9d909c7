#include "scene/scenesettings.h"

#include "scene/crossingmanager.h"
#include "scene/sceneprivate.h"

#include "tova/scene/scene.h"
#include "tova/scene/sceneerrors.h"

#include <iostream>

namespace Tova2 {

void Scene::pushCreationDrawStyle(const DrawStyle& style)
{
    d->settings.creationStyles.push_back(style);
}

DrawStyle Scene::popCreationDrawStyle()
{
    auto& styles = d->settings.creationStyles;
    if (styles.empty())
        raise(SceneError::NoCreationDrawStyleToPop);
    const DrawStyle style = styles.back();
    styles.pop_back();
    if (styles.empty())
        styles = {};
    return style;
}

DrawStyle Scene::getCreationDrawStyle()
{
    const auto& styles = d->settings.creationStyles;
    return styles.empty() ? DrawStyle() : styles.back();
}

Background Scene::getBackground() const
{
    return d->settings.background;
}

void Scene::setBackground(const Background& background)
{
    if (background == d->settings.background)
        return;
    d->settings.background = background;
    d->requestFullRepaint();
}

Vetra::StringID Scene::getLODStrategyKey() const
{
    return d->settings.lodStrategyKey;
}

void Scene::setLODStrategyKey(const Vetra::StringID& key)
{
    if (key == d->settings.lodStrategyKey)
        return;
    d->settings.lodStrategyKey = key;
    d->requestFullRepaint();
}

int Scene::getMinRenderFontSize() const
{
    return d->settings.minRenderFontSize;
}

void Scene::setMinRenderFontSize(int size)
{
    if (size == d->settings.minRenderFontSize)
        return;
    d->settings.minRenderFontSize = size;
    d->requestFullRepaint();
}

bool Scene::pathIntersectionsEnabled() const
{
    return d->crossings().isEnabled();
}

void Scene::setPathIntersectionsEnabled(bool enabled)
{
    d->crossings().setEnabled(enabled);
}

const std::string& Scene::pathIntersectionsDecoratorName() const
{
    return d->crossings().decoratorName();
}

void Scene::usePathIntersectionsDecorator(const std::string& name)
{
    d->crossings().useDecorator(name);
}

bool Scene::pathIntersectionsAllFound() const
{
    return d->crossings().allFound();
}

std::size_t Scene::pathIntersectionsCount() const
{
    return d->crossings().crossingCount();
}

void Scene::findPathIntersections()
{
    d->crossings().findAll();
}

void Scene::dumpPathIntersections() const
{
    d->crossings().dump(std::cout);
    std::cout.flush();
}

bool Scene::usingDebugRepaintRegion() const
{
    return d->settings.debugRepaintRegion;
}

void Scene::setDebugRepaintRegion(bool on)
{
    if (on == d->settings.debugRepaintRegion)
        return;
    d->settings.debugRepaintRegion = on;
    d->requestFullRepaint();
}

Vetra::Color Scene::debugRepaintRegionColor() const
{
    return d->settings.debugRepaintRegionColor;
}

void Scene::setDebugRepaintRegionColor(const Vetra::Color& color)
{
    d->settings.debugRepaintRegionColor = color;
}

bool Scene::getDebugTextEditArea() const
{
    return d->settings.debugTextEditArea;
}

void Scene::setDebugTextEditArea(bool on)
{
    d->settings.debugTextEditArea = on;
}

bool Scene::getTrackingPerformance() const
{
    return d->settings.trackingPerformance;
}

void Scene::setTrackingPerformance(bool on)
{
    d->settings.trackingPerformance = on;
}

} // namespace Tova2
