#include "tova/nodes/textnode.h"

#include "nodes/nodekind.h"
#include "nodes/textnodeimpl.h"

#include "vetra/qt.h"

namespace Tova2 {

TextNode::TextNode() : Node(FactoryIndex{factoryIndex<TextNodeImpl>()}) {}

TextNode::TextNode(const std::string& text) : TextNode()
{
    setText(text);
}

TextNode::TextNode(TextNodeImpl* impl) : Node(impl) {}

TextNode::TextNode(NodeImpl* impl) : Node(checkedKind<TextNodeImpl>(impl)) {}

std::string TextNode::getText() const
{
    return getValidTextNodeImpl()->text();
}

void TextNode::setText(const std::string& text)
{
    getValidTextNodeImpl()->setText(text);
}

Vetra::Font TextNode::getFont() const
{
    return getValidTextNodeImpl()->font();
}

void TextNode::setFont(const Vetra::Font& font)
{
    getValidTextNodeImpl()->setFont(font);
}

Vetra::Color TextNode::getColor() const
{
    return getValidTextNodeImpl()->color();
}

void TextNode::setColor(const Vetra::Color& color)
{
    getValidTextNodeImpl()->setColor(color);
}

HorizontalAlignment TextNode::getHorizontalAlignment() const
{
    return getValidTextNodeImpl()->horizontalAlignment();
}

void TextNode::setHorizontalAlignment(HorizontalAlignment alignment)
{
    getValidTextNodeImpl()->setHorizontalAlignment(alignment);
}

VerticalAlignment TextNode::getVerticalAlignment() const
{
    return getValidTextNodeImpl()->verticalAlignment();
}

void TextNode::setVerticalAlignment(VerticalAlignment alignment)
{
    getValidTextNodeImpl()->setVerticalAlignment(alignment);
}

Vetra::GLRect<double> TextNode::getRect() const
{
    return Vetra::fromQt(getValidTextNodeImpl()->box());
}

void TextNode::setRect(const Vetra::GLRect<double>& rect)
{
    getValidTextNodeImpl()->setBox(Vetra::toQt(rect));
}

Vetra::Size<double> TextNode::getNaturalSize() const
{
    return Vetra::fromQt(getValidTextNodeImpl()->naturalSize());
}

const char* TextNode::staticGetFullyQualifiedKobjTypeName()
{
    return "Tova2.TextNode";
}

TextNodeImpl* TextNode::getTextNodeImpl() const noexcept
{
    return static_cast<TextNodeImpl*>(getImpl());
}

TextNodeImpl* TextNode::getValidTextNodeImpl() const
{
    return static_cast<TextNodeImpl*>(getValidImpl());
}

} // namespace Tova2
