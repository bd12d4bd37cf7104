/** How long to wait for a camera. A web engine may let the question for it stand for ever. */
export const CAMERA_TIME = 5000

/** The camera's pictures; nothing where there is no camera, or none for this page. */
export async function openCamera(): Promise<MediaStream | undefined> {
  const { mediaDevices } = navigator as { mediaDevices?: MediaDevices }
  if (!mediaDevices?.getUserMedia) return undefined
  const wanted = { video: { facingMode: 'user', width: 640, height: 640 }, audio: false }
  let isLate = false
  const opened = mediaDevices.getUserMedia(wanted).then(
    (stream) => {
      // Whoever comes too late is sent away.
      if (isLate) closeCamera(stream)
      return stream
    },
    () => undefined,
  )
  let timer: ReturnType<typeof setTimeout> | undefined
  const late = new Promise<undefined>((resolve) => {
    timer = setTimeout(() => {
      isLate = true
      resolve(undefined)
    }, CAMERA_TIME)
  })
  const stream = await Promise.race([opened, late])
  clearTimeout(timer)
  return stream
}

export function closeCamera(stream: MediaStream): void {
  for (const track of stream.getTracks()) track.stop()
}

/** The middle square of what the camera shows now. */
export function takePicture(video: HTMLVideoElement, size = 480): HTMLCanvasElement {
  const canvas = document.createElement('canvas')
  canvas.width = size
  canvas.height = size
  const side = Math.min(video.videoWidth, video.videoHeight) || size
  const left = (video.videoWidth - side) / 2
  const top = (video.videoHeight - side) / 2
  canvas.getContext('2d')?.drawImage(video, left, top, side, side, 0, 0, size, size)
  return canvas
}
