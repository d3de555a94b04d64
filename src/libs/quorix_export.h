#ifndef QUORIX_EXPORT_H
#define QUORIX_EXPORT_H

/// Marks what leaves libquorixbizmodel.so.1; everything else stays hidden. Classes whose objects are thrown, derived
/// from or cast to outside the library carry it, so that their type information is one.
#define QUORIX_EXPORT __attribute__((visibility("default")))

#endif
