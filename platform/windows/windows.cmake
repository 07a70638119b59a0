corvane_library(corvane_platform_windows platform/windows PRECOMPILED none
    SOURCES
        windows/big_blocks.cpp windows/code_page_files.cpp windows/code_points.cpp windows/gb18030.cpp windows/helper_thread.cpp windows/listed_numbers.cpp windows/local_clock.cpp windows/own_process.cpp
        windows/standard_streams.cpp windows/system_failure.cpp windows/volume_serials.cpp windows/wide_path.cpp windows/windows_attention.cpp
        windows/windows_attributes.cpp windows/windows_directories.cpp windows/windows_entries.cpp windows/windows_facts.cpp
        windows/windows_file_system.cpp windows/windows_files.cpp windows/windows_instance_link.cpp windows/windows_keys.cpp
        windows/windows_machine.cpp windows/windows_names.cpp windows/windows_power.cpp windows/windows_process.cpp
        windows/windows_recycle.cpp windows/windows_records.cpp windows/windows_shell.cpp windows/windows_text_encoding.cpp windows/windows_volumes.cpp request_pool.cpp
    LINKS corvane_platform Threads::Threads ole32 shell32 uuid advapi32 user32 ntdll)
# Windows 10 and later. The wide calls alone, and no macros named min and max.
target_compile_definitions(corvane_platform_windows PRIVATE _WIN32_WINNT=0x0A00 NOMINMAX WIN32_LEAN_AND_MEAN)
target_link_libraries(corvane_platform_system INTERFACE corvane_platform_windows)
target_link_libraries(corvane_platform_services INTERFACE corvane_platform_windows)
