#include "link/writer_link.h"

namespace pyxis {

namespace {
WriterLink theWriterLink;
}

WriterLink& TheWriterLink() { return theWriterLink; }

void ResetWriterLink() { theWriterLink = WriterLink{}; }

}  // namespace pyxis
