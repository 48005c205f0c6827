#pragma once
// Parameter records of the host door. Every record derives from
// PI_DATA_BASE_CLASS, whose nine-integer block is part of the host's
// contract: the host reads it to recognise a record it can decode. A caller
// keeps the record on its stack for the length of one handle() call.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

class PI_DATA_BASE_CLASS {
 public:
  static constexpr int BLOCK_SIZE = 9;

  PI_DATA_BASE_CLASS();
  PI_DATA_BASE_CLASS(const PI_DATA_BASE_CLASS& other);
  PI_DATA_BASE_CLASS& operator=(const PI_DATA_BASE_CLASS& other);
  virtual ~PI_DATA_BASE_CLASS();

  // The fixed block: 0, 0, 2, 2, 2, 2, 2, 2, 0.
  const int32_t* block() const { return block_; }

 private:
  int32_t* block_;
};

namespace PIData {

// The host's "not set" value for doubles.
constexpr double PI_UNSET_DOUBLE = -999999999.0;

// Record of the operations on one object. Which fields an operation reads
// and writes is listed per operation in docs/host-door.md.
class PI_DATA_STRUCT : public PI_DATA_BASE_CLASS {
 public:
  uint64_t uniqueId = 0;        // result unique id
  uint64_t objectId = 0;        // parent or addressed object
  std::string text;
  double value1 = PI_UNSET_DOUBLE;
  double value2 = PI_UNSET_DOUBLE;
  double value3 = PI_UNSET_DOUBLE;
  void* pointer1 = nullptr;
  void* pointer2 = nullptr;
  int32_t intValue = 0;
  uint64_t longValue = 0;
  uint32_t kindMask = 0;
};

}  // namespace PIData

// Record of the operations with mixed arguments. Where one code covers
// several operations the first integer is the sub-operation number; results
// come back in the integer vector or through the pointers.
class PI_DATA_CATCHALL : public PI_DATA_BASE_CLASS {
 public:
  std::vector<int64_t> ints;
  std::vector<std::string> strings;
  std::vector<void*> pointers;
};

namespace PICommon {
class PICallbackFunctor;
}

// Small fixed records of the GUI wrappers, each named by its fields. The
// pointer is the addressed GUI object (or null for none).
class PI_DATA_POINTER_AND_INT : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  int32_t value = 0;
};

class PI_DATA_POINTER_AND_BOOL : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  bool value = false;
};

class PI_DATA_POINTER_AND_DOUBLE : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  double value = 0.0;
};

class PI_DATA_POINTER_AND_STRING : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  std::string value;
};

class PI_DATA_POINTER_AND_OPTS : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  std::map<std::string, std::string> options;
};

class PI_DATA_POINTER_AND_POINTER : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  void* value = nullptr;
};

class PI_DATA_POINTER_AND_FUNCTION : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  PICommon::PICallbackFunctor* function = nullptr;
};

class PI_DATA_POINTER_INT_AND_BOOL : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  int32_t intValue = 0;
  bool boolValue = false;
};

class PI_DATA_POINTER_INT_AND_STRING : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  int32_t intValue = 0;
  std::string text;
};

class PI_DATA_POINTER_INT_AND_FUNCTION : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  int32_t intValue = 0;
  PICommon::PICallbackFunctor* function = nullptr;
};

class PI_DATA_POINTER_POINTER_AND_INT : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  void* pointer2 = nullptr;
  int32_t value = 0;
};

class PI_DATA_POINTER_STRING_AND_STRING : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  std::string text1;
  std::string text2;
};

class PI_DATA_POINTER_STRING_AND_FUNCTION : public PI_DATA_BASE_CLASS {
 public:
  void* pointer = nullptr;
  std::string text;
  PICommon::PICallbackFunctor* function = nullptr;
};

// Registration of a file type: a plain handler (delegate null) or an
// advanced-open delegate.
class PI_REGISTER_HANDLER_DATA : public PI_DATA_BASE_CLASS {
 public:
  std::string pattern;
  std::string description;
  void* delegate = nullptr;
  int32_t flag = 0;
};
