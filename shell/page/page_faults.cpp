#include "shell/page/page_faults.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QString load_fault_text(FaultNumber number) {
    switch (number) {
        case FaultNumber::kUnexpected:
            return u"Error: Unexpected Error!"_s;
        case FaultNumber::kFileNotFound:
            return u"Error: File not found!"_s;
        case FaultNumber::kInvalidPath:
        case FaultNumber::kPathNotFound:
            return u"Error: invalid path!"_s;
        case FaultNumber::kFrameset:
            return u"Error: the document contains a frameset!"_s;
        case FaultNumber::kServerScript:
            return u"Error:  the document is mainly a  'server side script'"_s;
        case FaultNumber::kInvalidCall:
            return u"Error: invalid subject!"_s;
        case FaultNumber::kPermissionDenied:
            return u"Error: Access denied!"_s;
        case FaultNumber::kTooLarge:
            return u"Error: the document is too large!"_s;
        case FaultNumber::kBinary:
            return u"Error: the document is not a text!"_s;
        default:
            return u"Unknown Error!"_s;
    }
}

QString save_fault_text(FaultNumber number) {
    switch (number) {
        case FaultNumber::kUnexpected:
            return u"Unexpected error"_s;
        case FaultNumber::kInvalidPath:
        case FaultNumber::kPathNotFound:
            return u"Path not found"_s;
        case FaultNumber::kWriteDiskFull:
        case FaultNumber::kDiskFull:
            return u"Disk is full"_s;
        case FaultNumber::kInvalidCall:
            return u"Invalid argument"_s;
        case FaultNumber::kPermissionDenied:
            return u"Access denied"_s;
        default:
            return u"Unknown error"_s;
    }
}

}  // namespace

QString load_fault_message(FaultNumber number) {
    return u"Error occurred while downloading the document: "_s + load_fault_text(number) + u'.';
}

QString save_fault_message(FaultNumber number) {
    return u"Error occurred in the saving of the page: "_s + save_fault_text(number) + u'.';
}

}  // namespace pondera
