#include "main/features.h"

namespace Tova2::Features {

const Host::FrFeature& metafileVersionOverride()
{
    // Hosts look the description up as it is, misspelt.
    static const Host::FrFeature feature(
        "FRMetafileVersionOverride", "Ferro Feature: Export EMF only metafilen", "emf/emfdevice",
        "Ferro UI [Printing]", 1009938, 0, nullptr);
    return feature;
}

const Host::FrFeature& segvLogging()
{
    static const Host::FrFeature feature("SegvLogging", "Log user interactions in SEGV dialog",
                                         "main/initialize", "Ferro UI", 1643416, 1, nullptr);
    return feature;
}

const Host::FrFeature& mathGraphicsInRichAnnotations()
{
    static const Host::FrFeature feature(
        "MathGraphicsInRichAnnotations", "MathGraphics support in Rich Text Annotations",
        "nodes/richtextnodeimplstate", "Oxstudio [Editors]", 1222209, 0, nullptr);
    return feature;
}

const Host::FrFeature& mathGraphicsTextNode()
{
    static const Host::FrFeature feature("MathGraphicsTextNode", "MathGraphics mode of TextNode",
                                         "nodes/textnode", "Oxstudio [Editors]", 1219252, 0,
                                         nullptr);
    return feature;
}

} // namespace Tova2::Features
