#pragma once

#include <cstddef>

namespace Tova2::Limits {

// Beyond these, exact operations on free paths take seconds or crash in the toolkit; regions then
// answer from their rectangles.

/// Of the numbers of elements of the two paths that a union, an intersection or a comparison of
/// regions works on.
inline constexpr std::size_t pathElementsProduct = 10'000;
/// In a union or an intersection, of the two paths with each other and with themselves: few
/// elements can cross often, and that is what takes time.
inline constexpr std::size_t pathCrossings = 5'000;
/// The absolute value of a path's coordinates, in scene units.
inline constexpr double pathCoordinate = 1e9;

/// Coordinates up to here, in scene units, paint exactly; for all content.
inline constexpr double exactCoordinate = 8'388'608;
/// The same for shapes, which text does not count as.
inline constexpr double exactShapeCoordinate = 1e12;
/// In device pixels.
inline constexpr double penWidth = 32'767;

/// Of one node's text, in bytes of UTF-8.
inline constexpr std::size_t textBytes = std::size_t{1} << 20;
/// Of one line, in 16-bit units; nothing breaks lines but the text itself.
inline constexpr int textRun = 32'768;
/// Lines of one node's text that are shown.
inline constexpr int textLines = 16'384;

/// Nested nodes that are still painted.
inline constexpr int paintedNodeDepth = 2'000;
/// One node's cached picture.
inline constexpr std::size_t nodeCacheBytes = std::size_t{64} << 20;
/// All cached pictures of nodes together.
inline constexpr std::size_t allCachesBytes = std::size_t{256} << 20;
/// Width and height of an off-screen picture; above it there is none.
inline constexpr int offScreenSide = 32'767;
/// An off-screen picture, at four bytes a pixel; above it there is none.
inline constexpr std::size_t offScreenBytes = std::size_t{1} << 30;

} // namespace Tova2::Limits
