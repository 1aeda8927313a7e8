#pragma once

class QBackingStore;

namespace zenu {

/// Makes what is read from the store's paint device true and current: live pointers, the right
/// buffer, scrolled parts fetched from where the platform moved them. Not while a paint pass of the
/// window runs: it would lose pixels there for good. The store must have a size.
void completeStore(QBackingStore & store);

} // namespace zenu
