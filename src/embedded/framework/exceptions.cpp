// Throws the framework's exceptions.
#include "platform/framework_exceptions.h"

std::wstring CInvalidArgException::Message() const { return L"遇到不适当的参数。"; }

std::wstring CFileException::Message() const { return path_ + L": 读写文件失败。"; }

void AfxThrowInvalidArgException() { throw new CInvalidArgException; }

void AfxThrowFileException(const std::wstring& path) { throw new CFileException(path); }
