#pragma once

// Tool classes and the plugin class are exported from the library with their public members.
#define TL_ACTIONEX_EXPORT __attribute__((visibility("default")))
