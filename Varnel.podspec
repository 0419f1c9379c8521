# Varnel for CocoaPods: the core and the Objective-C class, from the sources of every other build.
Pod::Spec.new do |pod|
  pod.name = 'Varnel'
  # The version is written down once, in the umbrella header.
  pod.version = File.read(File.join(__dir__, 'include/Varnel/Varnel.h'))[/^#define VARNEL_VERSION "(.*)"/, 1]
  pod.summary = 'Reads the machine-readable zone of travel documents'
  pod.description = <<-TEXT
    Given the text that an optical reader produced from the machine-readable zone of a passport, identity card
    or visa (ICAO Doc 9303: TD1, TD2, TD3, MRV-A, MRV-B), Varnel returns the holder's data as twelve strings.
  TEXT
  pod.homepage = 'https://varnel.example'
  pod.license = { type: 'MIT', file: 'LICENSE' }
  pod.author = 'The Varnel authors'
  pod.source = { git: 'https://varnel.example/varnel.git', tag: "v#{pod.version}" }

  pod.ios.deployment_target = '9.0'
  pod.frameworks = 'Foundation'
  pod.source_files = 'include/**/*.h', 'src/**/*.{cpp,m}'
  pod.public_header_files = 'include/**/*.h'
  pod.header_mappings_dir = 'include/Varnel'
  pod.preserve_paths = 'src/**/*.{h,hpp}' # included by the sources beside them, of no use to anyone else
  pod.requires_arc = false
  pod.pod_target_xcconfig = {
    'CLANG_CXX_LANGUAGE_STANDARD' => 'c++17',
    'HEADER_SEARCH_PATHS' => '"${PODS_TARGET_SRCROOT}/include" "${PODS_TARGET_SRCROOT}/src"'
  }
end
