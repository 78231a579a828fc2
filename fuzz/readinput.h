// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace halvane::fuzz {

/// Makes the input the file `name` of a program folder of this process and lets `read` read it. Whatever the
/// input, that ends with a result or with a RunTimeFailure that names the file in one line; anything else
/// aborts.
void read_input(const char* name, const std::uint8_t* data, std::size_t size,
                const std::function<void()>& read);

/// Lets `work` use a program folder of this process. It ends, or raises a RunTimeFailure of one line;
/// anything else aborts.
void in_folder(const std::function<void()>& work);

/// read_input for a stored record, which also must come back unchanged once it has been written.
template <class Record>
void read_record(const char* name, const std::uint8_t* data, std::size_t size, const Record& (*read)(),
                 void (*write)(const Record&)) {
    read_input(name, data, size, [read, write] {
        write(Record(read())); // may mend a quote mark within a text
        const Record written = read();
        write(written);
        if (!(read() == written))
            __builtin_trap();
    });
}

} // namespace halvane::fuzz
