// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace halvane {

/// An open file of the system, closed with its owner.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { close(); }

    int number() const { return number_; } ///< -1 when none is open
    bool is_open() const { return number_ >= 0; }
    /// Of the file now; 0 when the system does not tell it                                         [bytes]
    std::size_t size() const;
    /// Returns whether the system had nothing against it, else errno tells; nothing is open afterwards.
    bool close();

private:
    int number_ = -1;
};

/// Writes all of `bytes`, however often it is interrupted. Returns whether that was done, else errno tells
/// why not.
bool write_whole(int file, std::string_view bytes);

/// Reads up to `count` further bytes. Returns how many; 0 at the end; -1 when errno tells why not.
std::ptrdiff_t read_some(int file, char* bytes, std::size_t count);

/// The same from the byte `offset` on; where the next one is read from stays as it is.
std::ptrdiff_t read_at(int file, char* bytes, std::size_t count, std::int64_t offset);

} // namespace halvane
