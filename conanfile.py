"""The Conan recipe: `conan create . --settings compiler.cppstd=20`. While no licence has been chosen,
it makes packages for your own use alone, and only if told so: `--options "&:without_licence=True"`.
"""

import os
import re

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load

required_conan_version = ">=2.0"


class TextFormatDetection(ConanFile):
    name = "text_format_detection"
    description = "Works out how a tabular text is laid out before it is imported"
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "bundled_is_datetime": [True, False],
               "without_licence": [True, False]}
    default_options = {"shared": False, "bundled_is_datetime": True, "without_licence": False}
    exports = "LICENSE"
    exports_sources = "LICENSE", "CMakeLists.txt", "cmake/*", "include/*", "packaging/*", "src/*"

    def set_version(self):
        project = load(self, f"{self.recipe_folder}/CMakeLists.txt")
        self.version = re.search(r"VERSION ([0-9.]+)", project.split("project(")[1]).group(1)

    def validate(self):
        check_min_cppstd(self, 20)

    def validate_build(self):
        has_licence = os.path.exists(os.path.join(self.recipe_folder, "LICENSE"))
        if not has_licence and not self.options.without_licence:
            raise ConanInvalidConfiguration(
                "No licence has been chosen: there is no file LICENSE. For a package that you will "
                'not pass on, add --options "&:without_licence=True".')

    def package_id(self):
        self.info.options.rm_safe("without_licence")

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["TEXTIO_DEVELOPER"] = False
        toolchain.cache_variables["TEXTIO_BUNDLED_IS_DATETIME"] = bool(
            self.options.bundled_is_datetime)
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))
        CMake(self).install()

    def package_info(self):
        self.cpp_info.libs = ["text_format_detection"]
        self.cpp_info.set_property("cmake_target_name",
                                   "text_format_detection::text_format_detection")
        self.cpp_info.set_property("pkg_config_name", "text_format_detection")
        if not self.options.shared:
            self.cpp_info.defines = ["TEXTIO_STATIC_DEFINE"]
