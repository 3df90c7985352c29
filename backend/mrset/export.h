#ifndef BACKEND_MRSET_EXPORT_H
#define BACKEND_MRSET_EXPORT_H

/// Marks what the module exports; everything else is hidden.
#define MRSET_EXPORT __attribute__((visibility("default")))

#endif  // BACKEND_MRSET_EXPORT_H
