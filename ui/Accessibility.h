// SPDX-License-Identifier: MIT
#pragma once

/// Gives assistive technology the roles of the tool's own widgets, which Qt cannot know, and has
/// its action on a button be a click: Qt would toggle a checkable button without the click that the
/// tool listens to. Counts for all widgets that are asked about from now on; may be called again.
/// Needs the application object.
void installAccessibility();
