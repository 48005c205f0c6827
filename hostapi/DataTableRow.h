#pragma once
// A data-table row as it crosses the host door: a time and the cells of the
// columns it fills, each under its column id. The row owns its cells.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "core/VariableType.h"

// One value of a data-table column. Every cell converts its value to and
// from any numeric type by plain conversion; string cells parse and format.
class DataTableCell {
 public:
  virtual ~DataTableCell() = default;
  virtual DataTableCell* clone() const = 0;
  virtual UTILS::VariableType_t getType() const = 0;

  virtual void setValue(uint8_t v) = 0;
  virtual void setValue(int8_t v) = 0;
  virtual void setValue(uint16_t v) = 0;
  virtual void setValue(int16_t v) = 0;
  virtual void setValue(uint32_t v) = 0;
  virtual void setValue(int32_t v) = 0;
  virtual void setValue(uint64_t v) = 0;
  virtual void setValue(int64_t v) = 0;
  virtual void setValue(float v) = 0;
  virtual void setValue(double v) = 0;
  virtual void setValue(const std::string& v) = 0;

  virtual void getValue(uint8_t& v) const = 0;
  virtual void getValue(int8_t& v) const = 0;
  virtual void getValue(uint16_t& v) const = 0;
  virtual void getValue(int16_t& v) const = 0;
  virtual void getValue(uint32_t& v) const = 0;
  virtual void getValue(int32_t& v) const = 0;
  virtual void getValue(uint64_t& v) const = 0;
  virtual void getValue(int64_t& v) const = 0;
  virtual void getValue(float& v) const = 0;
  virtual void getValue(double& v) const = 0;
  virtual void getValue(std::string& v) const = 0;

  // Bytes of the value in binary form; 0 for a string, which has no fixed width.
  virtual size_t getBinaryFormatSize() const = 0;
  // Reads the value from its binary form (host byte order). Answers false for
  // a string cell or a null buffer.
  virtual bool getValueFromBinaryFormat(const char* data) = 0;
};

namespace DataTableCellDetail {
template <typename T> struct TypeTag;
template <> struct TypeTag<uint8_t> { static constexpr UTILS::VariableType_t value = UTILS::VT_UINT8; };
template <> struct TypeTag<int8_t> { static constexpr UTILS::VariableType_t value = UTILS::VT_INT8; };
template <> struct TypeTag<uint16_t> { static constexpr UTILS::VariableType_t value = UTILS::VT_UINT16; };
template <> struct TypeTag<int16_t> { static constexpr UTILS::VariableType_t value = UTILS::VT_INT16; };
template <> struct TypeTag<uint32_t> { static constexpr UTILS::VariableType_t value = UTILS::VT_UINT32; };
template <> struct TypeTag<int32_t> { static constexpr UTILS::VariableType_t value = UTILS::VT_INT32; };
template <> struct TypeTag<uint64_t> { static constexpr UTILS::VariableType_t value = UTILS::VT_UINT64; };
template <> struct TypeTag<int64_t> { static constexpr UTILS::VariableType_t value = UTILS::VT_INT64; };
template <> struct TypeTag<float> { static constexpr UTILS::VariableType_t value = UTILS::VT_FLOAT32; };
template <> struct TypeTag<double> { static constexpr UTILS::VariableType_t value = UTILS::VT_FLOAT64; };
template <> struct TypeTag<std::string> { static constexpr UTILS::VariableType_t value = UTILS::VT_STRING; };

// Conversions between a cell's value and a requested type.
template <typename To, typename From>
To convert(const From& v) {
  if constexpr (std::is_same_v<To, From>) {
    return v;
  } else if constexpr (std::is_same_v<To, std::string>) {
    if constexpr (std::is_same_v<From, int8_t> || std::is_same_v<From, uint8_t>) {
      return std::to_string(static_cast<int>(v));
    } else if constexpr (std::is_floating_point_v<From>) {
      char buf[64];
      std::snprintf(buf, sizeof buf, "%.17g", static_cast<double>(v));
      return buf;
    } else {
      return std::to_string(v);
    }
  } else if constexpr (std::is_same_v<From, std::string>) {
    if constexpr (std::is_floating_point_v<To>) {
      return static_cast<To>(std::strtod(v.c_str(), nullptr));
    } else if constexpr (std::is_signed_v<To>) {
      return static_cast<To>(std::strtoll(v.c_str(), nullptr, 10));
    } else {
      return static_cast<To>(std::strtoull(v.c_str(), nullptr, 10));
    }
  } else if constexpr (std::is_floating_point_v<From> && std::is_integral_v<To>) {
    // NaN gives 0 and values beyond the type's range its nearest limit, so
    // that no value read from a file makes the conversion undefined.
    if (std::isnan(v)) return To(0);
    if (v <= static_cast<From>(std::numeric_limits<To>::lowest())) return std::numeric_limits<To>::lowest();
    if (v >= static_cast<From>(std::numeric_limits<To>::max())) return std::numeric_limits<To>::max();
    return static_cast<To>(v);
  } else {
    return static_cast<To>(v);
  }
}
}  // namespace DataTableCellDetail

template <typename T>
class DataTableCellTyped : public DataTableCell {
 public:
  DataTableCellTyped() : value_() {}
  explicit DataTableCellTyped(T value) : value_(std::move(value)) {}

  DataTableCell* clone() const override { return new DataTableCellTyped<T>(value_); }
  UTILS::VariableType_t getType() const override { return DataTableCellDetail::TypeTag<T>::value; }

  const T& value() const { return value_; }

  void setValue(uint8_t v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(int8_t v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(uint16_t v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(int16_t v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(uint32_t v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(int32_t v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(uint64_t v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(int64_t v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(float v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(double v) override { value_ = DataTableCellDetail::convert<T>(v); }
  void setValue(const std::string& v) override { value_ = DataTableCellDetail::convert<T>(v); }

  void getValue(uint8_t& v) const override { v = DataTableCellDetail::convert<uint8_t>(value_); }
  void getValue(int8_t& v) const override { v = DataTableCellDetail::convert<int8_t>(value_); }
  void getValue(uint16_t& v) const override { v = DataTableCellDetail::convert<uint16_t>(value_); }
  void getValue(int16_t& v) const override { v = DataTableCellDetail::convert<int16_t>(value_); }
  void getValue(uint32_t& v) const override { v = DataTableCellDetail::convert<uint32_t>(value_); }
  void getValue(int32_t& v) const override { v = DataTableCellDetail::convert<int32_t>(value_); }
  void getValue(uint64_t& v) const override { v = DataTableCellDetail::convert<uint64_t>(value_); }
  void getValue(int64_t& v) const override { v = DataTableCellDetail::convert<int64_t>(value_); }
  void getValue(float& v) const override { v = DataTableCellDetail::convert<float>(value_); }
  void getValue(double& v) const override { v = DataTableCellDetail::convert<double>(value_); }
  void getValue(std::string& v) const override { v = DataTableCellDetail::convert<std::string>(value_); }

  size_t getBinaryFormatSize() const override {
    if constexpr (std::is_same_v<T, std::string>) return 0;
    else return sizeof(T);
  }

  bool getValueFromBinaryFormat(const char* data) override {
    if constexpr (std::is_same_v<T, std::string>) {
      (void)data;
      return false;
    } else {
      if (!data) return false;
      std::memcpy(&value_, data, sizeof(T));
      return true;
    }
  }

 private:
  T value_;
};

// A row: its time and, per filled column, the column id and the cell. Columns
// left out of the row are empty for that time.
class DataTableRowT {
 public:
  DataTableRowT() = default;
  explicit DataTableRowT(double time) : time_(time) {}
  DataTableRowT(const DataTableRowT& other);
  DataTableRowT& operator=(const DataTableRowT& other);
  DataTableRowT(DataTableRowT&& other) noexcept;
  DataTableRowT& operator=(DataTableRowT&& other) noexcept;
  ~DataTableRowT();

  double time() const { return time_; }
  void setTime(double time) { time_ = time; }

  // Takes ownership of `cell`; a null cell is ignored.
  void addCell(int64_t columnId, DataTableCell* cell);
  const std::vector<std::pair<int64_t, DataTableCell*>>& cells() const { return cells_; }
  // The cell of a column, or null when the row leaves it out.
  const DataTableCell* cell(int64_t columnId) const;
  void clear();

 private:
  double time_ = 0.0;
  std::vector<std::pair<int64_t, DataTableCell*>> cells_;
};
