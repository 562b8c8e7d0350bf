// The text of a worker that is bundled by itself.
declare module "worker:*" {
  const source: string;
  export default source;
}
