"""The recipe for Conan 2, which packs the source tree that it lies in:

    conan create packaging/conan
"""
import os
import re

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rmdir


class ZtOrvexConan(ConanFile):
    name = "zt_orvex"
    description = "Read-only view and analyses of Ostrel programs for the tools of the language"
    topics = ("static-analysis", "data-flow", "array-language")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "kit": [True, False]}
    default_options = {"shared": True, "kit": True, "boost/*:header_only": True}

    def _root(self):
        return os.path.join(self.recipe_folder, os.pardir, os.pardir)

    def set_version(self):
        text = load(self, os.path.join(self._root(), "CMakeLists.txt"))
        self.version = re.search(r"^ *VERSION ([0-9.]+)$", text, re.MULTILINE).group(1)

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "cmake/*", "include/*", "src/*", "kit/CMakeLists.txt",
                        "kit/gdb/*", "kit/include/*", "kit/src/*"):
            copy(self, pattern, self._root(), self.export_sources_folder)

    def requirements(self):
        # The public headers include Boost's; fast_float stays inside.
        self.requires("boost/[>=1.81]", transitive_headers=True)
        self.requires("fast_float/[>=3.4]", visible=False)

    def validate(self):
        check_min_cppstd(self, 17)
        if "64" not in str(self.settings.arch) and self.settings.arch != "s390x":
            raise ConanInvalidConfiguration("zt_orvex is for 64 bits only")

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["BUILD_SHARED_LIBS"] = bool(self.options.shared)
        toolchain.cache_variables["ZT_ORVEX_BUILD_KIT"] = bool(self.options.kit)
        toolchain.cache_variables["ZT_ORVEX_INSTALL"] = True
        toolchain.generate()
        CMakeDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        # Conan writes these files for the consumer's own settings.
        rmdir(self, os.path.join(self.package_folder, "lib", "cmake"))
        rmdir(self, os.path.join(self.package_folder, "lib", "pkgconfig"))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "zt_orvex")
        library = self.cpp_info.components["zt_orvex"]
        library.libs = ["zt_orvex"]
        library.requires = ["boost::headers", "fast_float::fast_float"]
        library.set_property("cmake_target_name", "zt_orvex::zt_orvex")
        library.set_property("pkg_config_name", "zt_orvex")
        if not self.options.shared:
            library.defines = ["ZT_ORVEX_STATIC"]
        if self.options.kit:
            kit = self.cpp_info.components["kit"]
            kit.libs = ["zt_orvex_kit"]
            kit.requires = ["zt_orvex"]
            if not self.options.shared:
                kit.defines = ["ZT_ORVEX_KIT_STATIC"]
            kit.set_property("cmake_target_name", "zt_orvex::kit")
            kit.set_property("pkg_config_name", "zt_orvex_kit")
