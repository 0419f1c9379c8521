// swift-tools-version:5.5
// Varnel for the Swift Package Manager: the libraries and the Objective-C classes, from the sources of every other
// build, and typed values over them (import VarnelTyped).
import PackageDescription

let package = Package(
  name: "Varnel",
  platforms: [.iOS(.v9)],
  products: [
    .library(name: "Varnel", type: .dynamic, targets: ["Varnel", "VarnelTyped"])
  ],
  targets: [
    .target(
      name: "Varnel",
      path: ".",
      sources: ["src"],
      publicHeadersPath: "include",
      cSettings: [.headerSearchPath("src")],
      cxxSettings: [.headerSearchPath("src")],
      linkerSettings: [.linkedFramework("Foundation")]),
    .target(
      name: "VarnelTyped",
      dependencies: ["Varnel"],
      path: "bindings/swift"),
  ],
  cxxLanguageStandard: .cxx17
)
