#pragma once

/// The ids of the metrics that the family of reports knows, one constant each. Of most of them this
/// library has no declaration: they are what definitions and other tools of the family name.
namespace vantrel::ids {

/// @name Application details
/// @{
inline constexpr char applicationDetailsExeName[] = "applicationDetails.exeName";
inline constexpr char applicationDetailsCommandLine[] = "applicationDetails.commandLine";
inline constexpr char applicationDetailsProcessesPlain[] = "applicationDetails.processes.plain";
inline constexpr char applicationDetailsNodesPlain[] = "applicationDetails.nodes.plain";
inline constexpr char applicationDetailsLogicalCoresPerNode[] =
    "applicationDetails.logicalCoresPerNode";
inline constexpr char applicationDetailsPhysicalCoresPerNode[] =
    "applicationDetails.physicalCoresPerNode";
inline constexpr char applicationDetailsHasAcceleratorMetricsEnabled[] =
    "applicationDetails.hasAcceleratorMetricsEnabled";
inline constexpr char applicationDetailsGpusPerNodePlain[] = "applicationDetails.gpusPerNode.plain";
inline constexpr char applicationDetailsHasGpu[] = "applicationDetails.hasGpu";
inline constexpr char applicationDetailsHostMemoryPlain[] = "applicationDetails.hostMemory.plain";
inline constexpr char applicationDetailsHostGpuMemoryPlain[] =
    "applicationDetails.hostGpuMemory.plain";
inline constexpr char applicationDetailsOmpNumThreads[] = "applicationDetails.ompNumThreads";
inline constexpr char applicationDetailsIsOpenMp[] = "applicationDetails.isOpenMp";
inline constexpr char applicationDetailsHostname[] = "applicationDetails.hostname";
inline constexpr char applicationDetailsStartDate[] = "applicationDetails.startDate";
inline constexpr char applicationDetailsTimePlain[] = "applicationDetails.time.plain";
inline constexpr char applicationDetailsExePath[] = "applicationDetails.exePath";
inline constexpr char applicationDetailsNotes[] = "applicationDetails.notes";
inline constexpr char applicationDetailsInputFile[] = "applicationDetails.inputFile";
inline constexpr char applicationDetailsHasEnergyMetricsEnabled[] =
    "applicationDetails.hasEnergyMetricsEnabled";
/// @}

/// @name Overview
/// @{
inline constexpr char overviewCpuPercent[] = "overview.cpu.percent";
inline constexpr char overviewMpiPercent[] = "overview.mpi.percent";
inline constexpr char overviewIoPercent[] = "overview.io.percent";
inline constexpr char overviewSystemLoadPercent[] = "overview.systemLoadPercent";
inline constexpr char overviewAdvice[] = "overview.advice";
inline constexpr char overviewBound1Long[] = "overview.bound1.long";
inline constexpr char overviewBound1Short[] = "overview.bound1.short";
inline constexpr char overviewBound1Type[] = "overview.bound1.type";
inline constexpr char overviewBound1SubsectionId[] = "overview.bound1.subsectionId";
inline constexpr char overviewBound1SubsectionHeading[] = "overview.bound1.subsectionHeading";
inline constexpr char overviewBound2Long[] = "overview.bound2.long";
inline constexpr char overviewBound2Short[] = "overview.bound2.short";
inline constexpr char overviewBound2Type[] = "overview.bound2.type";
inline constexpr char overviewBound2SubsectionId[] = "overview.bound2.subsectionId";
inline constexpr char overviewBound2SubsectionHeading[] = "overview.bound2.subsectionHeading";
/// @}

/// @name Overview sections
/// @{
inline constexpr char overviewCpu[] = "overview.cpu";
inline constexpr char overviewMpi[] = "overview.mpi";
inline constexpr char overviewIo[] = "overview.io";
inline constexpr char overviewCpuPercentOfBudget[] = "overview.cpu.percentOfBudget";
inline constexpr char overviewAccPercentOfBudget[] = "overview.acc.percentOfBudget";
inline constexpr char overviewOtherPercentOfBudget[] = "overview.other.percentOfBudget";
/// @}

/// @name CPU
/// @{
inline constexpr char cpuSingleCorePercent[] = "cpu.singleCorePercent";
inline constexpr char cpuOpenMpPercent[] = "cpu.openMpPercent";
inline constexpr char cpuScalarNumPercent[] = "cpu.scalarNumPercent";
inline constexpr char cpuVectorNumPercent[] = "cpu.vectorNumPercent";
inline constexpr char cpuMemPercent[] = "cpu.memPercent";
inline constexpr char cpuWaitingAccPercent[] = "cpu.waitingAccPercent";
inline constexpr char cpuShowWaitingAcc[] = "cpu.showWaitingAcc";
/// @}

/// @name MPI
/// @{
inline constexpr char mpiCollectivePercent[] = "mpi.collectivePercent";
inline constexpr char mpiP2pPercent[] = "mpi.p2pPercent";
inline constexpr char mpiCollectiveRate[] = "mpi.collectiveRate";
inline constexpr char mpiP2pRate[] = "mpi.p2pRate";
/// @}

/// @name I/O
/// @{
inline constexpr char ioReadPercent[] = "io.readPercent";
inline constexpr char ioWritePercent[] = "io.writePercent";
inline constexpr char ioReadRate[] = "io.readRate";
inline constexpr char ioWriteRate[] = "io.writeRate";
inline constexpr char ioRateError[] = "io.rateError";
/// @}

/// @name OpenMP
/// @{
inline constexpr char openmpComputePercent[] = "openmp.computePercent";
inline constexpr char openmpOverheadPercent[] = "openmp.overheadPercent";
inline constexpr char openmpPhysicalCoreUtilizationPercent[] =
    "openmp.physicalCoreUtilizationPercent";
/// @}

/// @name Threads
/// @{
inline constexpr char threadsComputePercent[] = "threads.computePercent";
inline constexpr char threadsSyncPercent[] = "threads.syncPercent";
inline constexpr char threadsPhysicalCoreUtilizationPercent[] =
    "threads.physicalCoreUtilizationPercent";
/// @}

/// @name Memory
/// @{
inline constexpr char memoryMean[] = "memory.mean";
inline constexpr char memoryPeak[] = "memory.peak";
inline constexpr char memoryNodePeakPercent[] = "memory.nodePeakPercent";
/// @}

/// @name GPU
/// @{
inline constexpr char cudaGpusInUsePercent[] = "cuda.gpusInUsePercent";
inline constexpr char cudaGlobalMemoryAccessPercent[] = "cuda.globalMemoryAccessPercent";
inline constexpr char cudaMeanMemoryPercent[] = "cuda.meanMemoryPercent";
inline constexpr char cudaPeakMemoryPercent[] = "cuda.peakMemoryPercent";
inline constexpr char cudaError[] = "cuda.error";
/// @}

/// @name Energy
/// @{
inline constexpr char energyTotalPlain[] = "energy.total.plain";
inline constexpr char energyHasCpuPower[] = "energy.hasCpuPower";
inline constexpr char energyCpuTotalPlain[] = "energy.cpuTotal.plain";
inline constexpr char energyAccTotalPlain[] = "energy.accTotal.plain";
inline constexpr char energyTrapped[] = "energy.trapped";
inline constexpr char energyNodePowerBudget[] = "energy.nodePowerBudget";
inline constexpr char energyBudgetedTotal[] = "energy.budgetedTotal";
inline constexpr char energyHasMetrics[] = "energy.hasMetrics";
inline constexpr char energyHasAccPower[] = "energy.hasAccPower";
inline constexpr char energyHasBudgetedMetric[] = "energy.hasBudgetedMetric";
inline constexpr char energyHasTrappedCapacity[] = "energy.hasTrappedCapacity";
inline constexpr char energyCpuPercent[] = "energy.cpuPercent";
inline constexpr char energyAccPercent[] = "energy.accPercent";
inline constexpr char energyTrappedPercent[] = "energy.trappedPercent";
inline constexpr char energyOtherPercent[] = "energy.otherPercent";
inline constexpr char energyNodeMeanPower[] = "energy.nodeMeanPower";
inline constexpr char energyNodePeakPower[] = "energy.nodePeakPower";
inline constexpr char energyNodeMeanMpiCpuPower[] = "energy.nodeMeanMpiCpuPower";
inline constexpr char energyNodeMeanIoCpuPower[] = "energy.nodeMeanIoCpuPower";
inline constexpr char energyNodeMeanOmpCpuPower[] = "energy.nodeMeanOmpCpuPower";
inline constexpr char energyNodeMeanOtherCpuPower[] = "energy.nodeMeanOtherCpuPower";
inline constexpr char energyMpiCpuPercent[] = "energy.mpiCpuPercent";
inline constexpr char energyIoCpuPercent[] = "energy.ioCpuPercent";
inline constexpr char energyOmpCpuPercent[] = "energy.ompCpuPercent";
inline constexpr char energyOtherCpuPercent[] = "energy.otherCpuPercent";
inline constexpr char energyError[] = "energy.error";
/// @}

/// @name Report
/// @{
inline constexpr char reportName[] = "report.name";
inline constexpr char reportVersionApi[] = "report.version.api";
inline constexpr char reportVersionSoftware[] = "report.version.software";
inline constexpr char reportSrcDefinition[] = "report.src.definition";
inline constexpr char reportSrcValues[] = "report.src.values";
/// @}

/// @name Section names
/// @{
inline constexpr char cpuSection[] = "cpu";
inline constexpr char mpiSection[] = "mpi";
inline constexpr char ioSection[] = "io";
inline constexpr char memorySection[] = "memory";
inline constexpr char openmpSection[] = "openmp";
inline constexpr char threadsSection[] = "threads";
inline constexpr char cudaSection[] = "cuda";
inline constexpr char energySection[] = "energy";
inline constexpr char cpuEnergySection[] = "cpuEnergy";
/// @}

} // namespace vantrel::ids
