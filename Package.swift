// swift-tools-version:5.5
// Varnel for the Swift Package Manager: the core and the Objective-C face, from the sources of every other build.
import PackageDescription

let package = Package(
  name: "Varnel",
  platforms: [.iOS(.v9)],
  products: [
    .library(name: "Varnel", targets: ["Varnel"])
  ],
  targets: [
    .target(
      name: "Varnel",
      path: ".",
      sources: ["src"],
      publicHeadersPath: "include",
      linkerSettings: [.linkedFramework("Foundation")])
  ],
  cxxLanguageStandard: .cxx17
)
