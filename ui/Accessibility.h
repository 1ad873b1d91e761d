// SPDX-License-Identifier: MIT
#pragma once

/// Has assistive technology see the widgets of this tool as what they are, and a click on a button
/// as what it does: Qt cannot know the tool's own classes, and offers to toggle a checkable button
/// without the click that the tool listens to. For every widget from now on; may be called again.
/// Needs the application object.
void installAccessibility();
