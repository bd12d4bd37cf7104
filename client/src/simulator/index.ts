export * from './errors.js'
export type { SimulatedDevice, SimulatorOptions } from './options.js'
export type {
  SimulatedFault,
  SimulatedRobot,
  SimulatedScannerChanges,
  WaitOptions,
} from './robot.js'
export * from './start.js'
export type * from './state.js'
