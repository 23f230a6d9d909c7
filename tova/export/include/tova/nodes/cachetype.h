#pragma once

#include <cstdint>

namespace Tova2 {

/// Whether a node's own painting, without its children, is kept as pixels between paints. It pays
/// for what is seldom edited and has curves, dashes, gradients, much text or a painter of the
/// host: several times over. Rectangles and straight lines are painted about as fast as a picture
/// is copied. A picture takes four bytes a pixel of the node's bounding rectangle on screen.
///
/// A cached node looks like an uncached one at every zoom and on screens of any density, but for a
/// few of 255 levels of colour where what is translucent is composed a second time: a picture is
/// used only for the scale, direction, part of a pixel and pixel density that it was
/// made for. A picture beyond the library's limits is not made, and the node painted anew; when all
/// caches reach theirs, what was used longest ago goes. Printers, PDF and recorded pictures never
/// see one. An edit of the node or of the scene's settings drops its pictures.
enum class CacheType : std::uint8_t {
    NoCache, ///< painted anew each time
    /// Keeps the last four pictures: for nodes shown by several canvases, or at zooms that come
    /// back.
    ItemCoordinateCache,
    /// Keeps the last picture only: for nodes that one canvas shows, while the view pans by whole
    /// pixels or other nodes change around it.
    DeviceCoordinateCache
};

} // namespace Tova2
